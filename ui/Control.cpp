#include "ui/Control.h"

#include <utility>

#include "core/RuntimeError.h"
#include "ui/Form.h"
#include "ui/WindowGuard.h"

namespace tallyrun {
namespace {

bool KeyIsDown(int key) { return GetKeyState(key) < 0; }

Control* focused = nullptr;

bool HasBorder(HWND window) {
  constexpr LONG kBorders = WS_BORDER | WS_DLGFRAME | WS_THICKFRAME | WS_HSCROLL | WS_VSCROLL;
  constexpr LONG kEdges = WS_EX_CLIENTEDGE | WS_EX_STATICEDGE | WS_EX_WINDOWEDGE;
  return (GetWindowLongA(window, GWL_STYLE) & kBorders) != 0 ||
         (GetWindowLongA(window, GWL_EXSTYLE) & kEdges) != 0;
}

// The window that has the keyboard, or the one a calendar or menu dropped down from.
HWND ActiveFormWindow() {
  const HWND active = GetActiveWindow();
  if (active == nullptr || Form::FromHandle(active) != nullptr) return active;
  return GetWindow(active, GW_OWNER);
}

}  // namespace

KeyEvent KeyEventFrom(WPARAM wParam, LPARAM lParam) {
  constexpr LPARAM kWasDown = 1 << 30;
  return {.key = static_cast<int>(wParam),
          .shift = KeyIsDown(VK_SHIFT),
          .control = KeyIsDown(VK_CONTROL),
          .handled = false,
          .repeated = (lParam & kWasDown) != 0};
}

namespace focus {

void Took(Control& control) {
  if (focused == &control) return;
  Control* const former = std::exchange(focused, &control);
  if (former != nullptr) former->LostFocus.Raise();
}

void Forget(const Control& control) {
  if (focused == &control) focused = nullptr;
}

}  // namespace focus

Control::~Control() {
  if (window_ == nullptr) return;
  // Its form is being destroyed while loaded, and the handlers' owner with it.
  form_->Abandon();
  DestroyWindow(window_);
}

void Control::CreateControl(ControlParent& parent, int id, const char* windowClass,
                            const std::string& text, DWORD style, DWORD extendedStyle) {
  form_ = &parent.ParentForm();
  id_ = id;
  const HWND window = CreateWindowExA(
      extendedStyle, windowClass, text.c_str(), style | WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0,
      0, 0, 0, parent.ParentHandle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
      GetModuleHandleA(nullptr), nullptr);
  if (window == nullptr) throw RuntimeError(ErrorKind::OutOfMemory);
  window_ = window;
  SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  classProc_.Precede(window, &WindowProc);
  hasTip_ = false;
  form_->Adopt(*this);
}

Control* Control::FromHandle(HWND window) {
  return reinterpret_cast<Control*>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

LRESULT CALLBACK Control::WindowProc(HWND window, UINT message, WPARAM wParam,
                                     LPARAM lParam) noexcept {
  Control* const self = FromHandle(window);
  if (message == WM_NCDESTROY) {
    self->WindowGone();
    return self->classProc_.Call(window, message, wParam, lParam);
  }
  return RunGuarded([&] { return self->OnMessage(message, wParam, lParam); });
}

void Control::WindowGone() {
  SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
  focus::Forget(*this);
  if (form_ != nullptr) form_->Disown(*this);
  window_ = nullptr;
}

LRESULT Control::Default(UINT message, WPARAM wParam, LPARAM lParam) {
  return window_ == nullptr ? 0 : classProc_.Call(window_, message, wParam, lParam);
}

LRESULT Control::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETFOCUS: {
      const LRESULT answer = Default(message, wParam, lParam);
      form_->NoteFocus(*this);
      focus::Took(*this);
      return answer;
    }
    case WM_KEYDOWN:
    case WM_CHAR: {
      KeyEvent key = KeyEventFrom(wParam, lParam);
      if (message == WM_KEYDOWN && key.key == VK_INSERT && !key.repeated) {
        insertIsClipboards_ = key.shift || key.control;
      }
      (message == WM_CHAR ? KeyPress : KeyDown).Raise(key);
      return key.handled ? 0 : Default(message, wParam, lParam);
    }
    case WM_KEYUP: {
      KeyEvent key = KeyEventFrom(wParam, lParam);
      RaiseKeyUp(key);
      return key.handled ? 0 : Default(message, wParam, lParam);
    }
    case WM_NCPAINT:
      // Most controls are all client area; fetching a device context to draw no border adds up.
      return HasBorder(window_) ? Default(message, wParam, lParam) : 0;
    case WM_SETCURSOR:
      // The mouse has come: soon enough for a tip, which start-up need not wait for.
      if (!hasTip_ && !toolTip_.empty() && form_->PointerHasMoved()) {
        hasTip_ = true;
        form_->ShowToolTip(*this);
      }
      // Before the control's own: a header or an edit would set its pointer over the hourglass.
      if (LOWORD(lParam) == HTCLIENT && form_->HoldPointer()) return TRUE;
      return Default(message, wParam, lParam);
    default:
      return Default(message, wParam, lParam);
  }
}

void Control::RaiseKeyUp(KeyEvent& key) {
  const bool isClipboardKey = key.key == VK_INSERT && std::exchange(insertIsClipboards_, false);
  if (EditsText() && (key.key == VK_DELETE || isClipboardKey)) return;
  (KeyUp.HasHandler() ? KeyUp : form_->KeyUp).Raise(key);
}

std::optional<LRESULT> Control::Reflect(UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const notification = reinterpret_cast<NMHDR*>(lParam);
  const bool isCommand = message == WM_COMMAND;
  Control* const control =
      FromHandle(isCommand ? reinterpret_cast<HWND>(lParam) : notification->hwndFrom);
  if (control == nullptr) return std::nullopt;
  if (!isCommand) return control->OnNotify(*notification);
  control->OnCommand(HIWORD(wParam));
  return 0;
}

std::string Control::Text() const {
  if (window_ == nullptr) return {};
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window_)) + 1, '\0');
  text.resize(static_cast<std::size_t>(
      GetWindowTextA(window_, text.data(), static_cast<int>(text.size()))));
  return text;
}

void Control::SetText(const std::string& text) {
  if (window_ != nullptr && Text() != text) SetWindowTextA(window_, text.c_str());
}

bool Control::Enabled() const {
  return window_ != nullptr && (GetWindowLongA(window_, GWL_STYLE) & WS_DISABLED) == 0;
}

void Control::SetEnabled(bool enabled) {
  if (window_ != nullptr) EnableWindow(window_, enabled ? TRUE : FALSE);
}

bool Control::Visible() const {
  return window_ != nullptr && (GetWindowLongA(window_, GWL_STYLE) & WS_VISIBLE) != 0;
}

void Control::SetVisible(bool visible) {
  if (window_ != nullptr) ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

void Control::SetFocus() {
  if (window_ == nullptr || !Visible() || !Enabled()) return;
  // Giving a window the focus would bring its form to the front, over another program.
  if (ActiveFormWindow() == form_->Handle()) {
    ::SetFocus(window_);
  } else {
    form_->NoteFocus(*this);
  }
}

bool Control::HasFocus() const { return window_ != nullptr && GetFocus() == window_; }

PixelRect Control::Bounds() const {
  if (window_ == nullptr) return {};
  RECT rect = {};
  GetWindowRect(window_, &rect);
  MapWindowPoints(nullptr, GetParent(window_), reinterpret_cast<POINT*>(&rect), 2);
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

void Control::Move(const PixelRect& bounds) {
  if (window_ == nullptr) return;
  SetWindowPos(window_, nullptr, bounds.x, bounds.y, bounds.width, WindowHeightFor(bounds.height),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Control::SetToolTip(const std::string& text) {
  toolTip_ = text;
  if (window_ != nullptr && hasTip_) form_->ShowToolTip(*this);
}

void Control::ApplyFont(HFONT font) {
  if (window_ == nullptr) return;
  SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), IsWindowVisible(window_));
}

}  // namespace tallyrun
