// The form's window procedure and what it does with each message.

#include <algorithm>

#include "ui/Form.h"
#include "ui/WindowGuard.h"

namespace tallyrun {

namespace {

bool CanTakeFocus(HWND window) {
  return window != nullptr && IsWindowVisible(window) && IsWindowEnabled(window);
}

}  // namespace

LRESULT CALLBACK Form::WindowProc(HWND window, UINT message, WPARAM wParam,
                                  LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* const form =
        static_cast<Form*>(reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams);
    form->window_ = window;
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(form));
  }
  auto* const form = reinterpret_cast<Form*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (form == nullptr) return DefWindowProcA(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    form->WindowGone();
    return DefWindowProcA(window, message, wParam, lParam);
  }
  return RunGuarded([&] { return form->OnMessage(message, wParam, lParam); });
}

Form* Form::FromHandle(HWND window) {
  for (Form* form : LoadedForms()) {
    if (form->Handle() == window) return form;
  }
  return nullptr;
}

LRESULT Form::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
    case WM_NOTIFY:
      if (const auto answer = Control::Reflect(message, wParam, lParam)) return *answer;
      break;
    case WM_SIZE:
      OnSize(wParam);
      return 0;
    case WM_GETMINMAXINFO:
      OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam));
      return 0;
    case WM_ACTIVATE:
      return OnActivate(wParam, lParam);
    case WM_SETFOCUS:
      RestoreFocus();
      return 0;
    case WM_KEYUP: {
      KeyEvent key = KeyEventFrom(wParam, lParam);
      KeyUp.Raise(key);
      return 0;
    }
    case WM_SETCURSOR:
      if (LOWORD(lParam) == HTCLIENT && HoldPointer()) return TRUE;
      break;
    case WM_DPICHANGED:
      OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_SETTINGCHANGE:
      if (wParam == SPI_SETNONCLIENTMETRICS) {
        RefreshFont();
        Relayout();
        RunHandler([this] { Form_Resize(); });
      }
      break;
    case WM_SYSCOLORCHANGE:
      for (const Control* control : controls_) {
        SendMessageA(control->Handle(), message, wParam, lParam);
      }
      break;
    case WM_CLOSE:
      // A message box or modal form is in front; the form waits for it.
      if (IsWindowEnabled(window_)) Unload();
      return 0;
    case kUnloadPending:
      if (closePending_ && handlersRunning_ == 0) UnloadNow();
      return 0;
    default:
      break;
  }
  return DefWindowProcA(window_, message, wParam, lParam);
}

LRESULT Form::OnActivate(WPARAM wParam, LPARAM lParam) {
  // A plain window would take the focus itself.
  if (LOWORD(wParam) == WA_INACTIVE || HIWORD(wParam) != 0) {
    return DefWindowProcA(window_, WM_ACTIVATE, wParam, lParam);
  }
  RestoreFocus();
  return 0;
}

void Form::RestoreFocus() {
  // Controls that come or go are no place for it.
  if (loading_ || unloading_) return;
  if (CanTakeFocus(lastFocus_)) {
    ::SetFocus(lastFocus_);
    return;
  }
  const HWND first = GetNextDlgTabItem(window_, nullptr, FALSE);
  if (!CanTakeFocus(first)) return;
  ::SetFocus(first);
  // As arriving by Tab does: typing replaces what the box held.
  if (SendMessageA(first, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) {
    SendMessageA(first, EM_SETSEL, 0, -1);
  }
}

// After a handler that hid or disabled the control with the focus, the keyboard would be dead.
void Form::RepairFocus() {
  if (window_ == nullptr || loading_ || unloading_ || GetActiveWindow() != window_) return;
  const HWND focusedWindow = GetFocus();
  if (focusedWindow == nullptr || focusedWindow == window_) {
    RestoreFocus();
  } else if (IsChild(window_, focusedWindow) && !CanTakeFocus(focusedWindow)) {
    const HWND next = GetNextDlgTabItem(window_, focusedWindow, FALSE);
    if (CanTakeFocus(next)) ::SetFocus(next);
  }
}

void Form::OnSize(WPARAM wParam) {
  if (loading_ || wParam == SIZE_MINIMIZED) return;
  const SIZE size = ClientSize();
  if (size.cx == clientSize_.cx && size.cy == clientSize_.cy) return;
  clientSize_ = size;
  Relayout();
  RunHandler([this] { Form_Resize(); });
}

void Form::OnMinMaxInfo(MINMAXINFO& limits) const {
  const SIZE least = WindowSize(minimum_);
  limits.ptMinTrackSize = {least.cx, least.cy};
}

void Form::OnDpiChanged(int dpi, const RECT& suggested) {
  dpi_ = dpi;
  RefreshFont();
  Relayout();
  SIZE size = {suggested.right - suggested.left, suggested.bottom - suggested.top};
  // Fonts don't grow as evenly as the suggestion has it.
  if (!options_.sizable) size = WindowSize(minimum_);
  SetWindowPos(window_, nullptr, suggested.left, suggested.top, static_cast<int>(size.cx),
               static_cast<int>(size.cy), SWP_NOZORDER | SWP_NOACTIVATE);
  // Also where the client area happens to keep its size: the controls have not.
  RunHandler([this] { Form_Resize(); });
}

bool Form::HoldPointer() const {
  if (pointer_ != PointerShape::Hourglass) return false;
  SetCursor(LoadCursorA(nullptr, IDC_WAIT));
  return true;
}

bool Form::PointerHasMoved() const {
  POINT at = {};
  GetCursorPos(&at);
  return at.x != pointerAtShow_.x || at.y != pointerAtShow_.y;
}

void Form::ShowPointer(PointerShape shape) {
  pointer_ = shape;
  POINT at = {};
  GetCursorPos(&at);
  const HWND under = WindowFromPoint(at);
  // At once, as nothing asks for the pointer before it next moves.
  if (under == nullptr || (under != window_ && !IsChild(window_, under))) return;
  if (!HoldPointer()) SetCursor(LoadCursorA(nullptr, IDC_ARROW));
}

}  // namespace tallyrun
