#include "ui/Form.h"

#include <algorithm>

#include "core/Platform.h"
#include "core/RuntimeError.h"
#include "ui/MessageLoop.h"

namespace tallyrun {
namespace {

std::vector<Form*> loadedForms;
bool programIsEnding = false;

}  // namespace

std::vector<HWND> DisableOtherForms(HWND except) {
  std::vector<HWND> disabled;
  for (const Form* form : loadedForms) {
    if (form->Handle() == except || !IsWindowEnabled(form->Handle())) continue;
    EnableWindow(form->Handle(), FALSE);
    disabled.push_back(form->Handle());
  }
  return disabled;
}

void EnableForms(std::vector<HWND>& forms) {
  for (const HWND form : forms) {
    if (IsWindow(form)) EnableWindow(form, TRUE);
  }
  forms.clear();
}

// Counts the running handlers of a form, and lets a closed form go after the outermost one.
class Form::HandlerScope {
 public:
  explicit HandlerScope(Form& form) : form_(form) { ++form_.handlersRunning_; }
  ~HandlerScope() {
    if (--form_.handlersRunning_ > 0) return;
    if (form_.closePending_) {
      // Posted, as the control whose handler ran may still be inside its own window procedure.
      PostMessageA(form_.window_, kUnloadPending, 0, 0);
    } else {
      form_.RepairFocus();
    }
  }
  HandlerScope(const HandlerScope&) = delete;
  HandlerScope& operator=(const HandlerScope&) = delete;

 private:
  Form& form_;
};

Form::Form(const char* name, FormOptions options) : name_(name), options_(std::move(options)) {}

Form::~Form() {
  EndModal();
  if (window_ != nullptr) DestroyWindow(window_);
}

void Form::Load() {
  if (closePending_ && handlersRunning_ == 0) UnloadNow();
  // Wanted again before the handler that it waited for has returned: it stays.
  closePending_ = false;
  if (IsLoaded()) return;
  if (loadedForms.empty()) programIsEnding = false;
  loading_ = true;
  try {
    CreateFormWindow(owner_);
    CreateControls();
    RefreshFont();
    PlaceOnScreen(owner_);
  } catch (...) {
    loading_ = false;
    if (window_ != nullptr) DestroyWindow(window_);
    throw;
  }
  loading_ = false;
  RunHandler([this] { Form_Load(); });
}

void Form::Show() {
  Load();
  GetCursorPos(&pointerAtShow_);
  for (Control* control : controls_) control->OnShowing();
  ShowWindow(window_, IsIconic(window_) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(window_);
  RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void Form::ShowModal(Form* owner) {
  owner_ = owner == nullptr ? nullptr : owner->Handle();
  if (IsLoaded()) SetWindowLongPtrA(window_, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner_));
  Load();
  disabledByModal_ = DisableOtherForms(window_);
  Show();
  RunMessagesUntil([this] { return !IsLoaded() || (programIsEnding && !closePending_); });
  owner_ = nullptr;
  if (!programIsEnding) return;
  Unload();
  throw ProgramEnding{};
}

void Form::Unload() {
  if (!IsLoaded() || unloading_) return;
  if (options_.endsProgram) programIsEnding = true;
  if (handlersRunning_ == 0) {
    UnloadNow();
    return;
  }
  closePending_ = true;
  EndModal();
  ShowWindow(window_, SW_HIDE);
}

void Form::UnloadNow() {
  unloading_ = true;
  RunHandler([this] { Form_Unload(); });
  // Enabled first, or the system would bring another program to the front.
  EndModal();
  DestroyWindow(window_);
  unloading_ = false;
}

void Form::WindowGone() {
  std::erase(loadedForms, this);
  EndModal();
  window_ = nullptr;
  lastFocus_ = nullptr;
  toolTips_.Forget();
  controls_.clear();
  font_.Reset();
  minimum_ = {};
  pointer_ = PointerShape::Normal;
  closePending_ = false;
}

void Form::EndModal() { EnableForms(disabledByModal_); }

void Form::RunHandler(const std::function<void()>& handler) {
  const HandlerScope scope(*this);
  RunTrapped(handler);
}

void Form::ShowCaption(const std::string& caption) {
  caption_ = caption;
  if (window_ != nullptr) SetWindowTextA(window_, caption.c_str());
}

void Form::EnableControls(bool enabled) {
  for (Control* control : controls_) control->SetEnabled(enabled);
}

HFONT Form::Font() {
  if (!font_) font_ = MakeMessageFont(dpi_, options_.fontFace);
  return font_.Get();
}

void Form::RefreshFont() {
  // The old one lives until every control has the new one.
  const UniqueFont former = std::exchange(font_, UniqueFont());
  for (Control* control : controls_) control->ApplyFont(Font());
  toolTips_.ApplyFont(Font(), dpi_);
}

SIZE Form::ClientSize() const {
  RECT client = {};
  GetClientRect(window_, &client);
  return {client.right, client.bottom};
}

SIZE Form::WindowSize(SIZE client) const {
  return WindowSizeFor(client, static_cast<DWORD>(GetWindowLongA(window_, GWL_STYLE)),
                       static_cast<DWORD>(GetWindowLongA(window_, GWL_EXSTYLE)), dpi_);
}

void Form::Relayout() {
  if (window_ == nullptr || IsIconic(window_)) return;
  LayoutArea area(*this);
  Layout(area);
  minimum_ = area.Minimum();
  area.Apply();
}

void Form::Adopt(Control& control) { controls_.push_back(&control); }

void Form::Disown(Control& control) {
  std::erase(controls_, &control);
  toolTips_.Remove(window_, control.Handle());
  if (lastFocus_ == control.Handle()) lastFocus_ = nullptr;
}

void Form::ShowToolTip(const Control& control) {
  toolTips_.Set(window_, control.Handle(), control.ToolTip());
}

const std::vector<Form*>& Form::LoadedForms() { return loadedForms; }

bool Form::ProgramIsEnding() { return programIsEnding; }

void Form::CreateFormWindow(HWND owner) {
  RegisterWindowClass(name_, WindowProc);
  DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
  if (options_.sizable) style |= WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
  // A form of fixed size is a dialog: no icon, and nothing to make it smaller or larger with.
  const DWORD extendedStyle =
      WS_EX_CONTROLPARENT | (options_.sizable ? 0u : static_cast<DWORD>(WS_EX_DLGMODALFRAME));
  CreateWindowExA(extendedStyle, name_, caption_.c_str(), style, CW_USEDEFAULT, CW_USEDEFAULT,
                  CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, GetModuleHandleA(nullptr), this);
  if (window_ == nullptr) throw RuntimeError(ErrorKind::OutOfMemory);
  dpi_ = DpiOf(window_);
  loadedForms.push_back(this);
}

void Form::PlaceOnScreen(HWND owner) {
  // A form of fixed size takes the minimum as its size.
  LayoutArea area(*this);
  Layout(area);
  minimum_ = area.Minimum();
  SIZE client = {Scale(options_.width), Scale(options_.height)};
  if (!options_.sizable) client = minimum_;
  client.cx = std::max(client.cx, minimum_.cx);
  client.cy = std::max(client.cy, minimum_.cy);
  const SIZE size = WindowSize(client);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoA(MonitorFromWindow(owner != nullptr ? owner : window_, MONITOR_DEFAULTTONEAREST),
                  &monitor);
  const RECT& work = monitor.rcWork;
  RECT around = work;
  if (owner != nullptr) GetWindowRect(owner, &around);
  const LONG width = std::min(size.cx, work.right - work.left);
  const LONG height = std::min(size.cy, work.bottom - work.top);
  const LONG x = std::clamp((around.left + around.right - width) / 2, work.left,
                            std::max(work.left, work.right - width));
  const LONG y = std::clamp((around.top + around.bottom - height) / 2, work.top,
                            std::max(work.top, work.bottom - height));
  SetWindowPos(window_, nullptr, static_cast<int>(x), static_cast<int>(y), static_cast<int>(width),
               static_cast<int>(height), SWP_NOZORDER | SWP_NOACTIVATE);
  Relayout();
  clientSize_ = ClientSize();
}

}  // namespace tallyrun
