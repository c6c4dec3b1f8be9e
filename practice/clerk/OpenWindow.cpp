#include "practice/clerk/OpenWindow.h"

#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {

namespace {

constexpr UINT kReplyMilliseconds = 2000;

// A sent message's answer; 0 when the program does not answer in time.
LRESULT AskWindow(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR answer = 0;
  SendMessageTimeoutA(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kReplyMilliseconds,
                      &answer);
  return static_cast<LRESULT>(answer);
}

}  // namespace

std::string TextOf(HWND window) {
  std::string text(static_cast<size_t>(AskWindow(window, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
  text.resize(static_cast<size_t>(
      AskWindow(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

std::string CaptionOf(HWND window) {
  std::string caption = TextOf(window);
  std::erase(caption, '&');
  return caption;
}

std::string ClassOf(HWND window) {
  std::string name(256, '\0');
  name.resize(static_cast<size_t>(GetClassNameA(window, name.data(), 256)));
  return name;
}

std::vector<HWND> ChildrenOf(HWND window) {
  std::vector<HWND> children;
  EnumChildWindows(
      window,
      [](HWND child, LPARAM list) -> BOOL {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&children));
  return children;
}

bool OpenWindow::IsOpen() const { return IsWindow(window_) && IsWindowVisible(window_); }

std::string OpenWindow::Caption() const { return TextOf(window_); }

HWND OpenWindow::FindControl(int id) const {
  for (HWND child : ChildrenOf(window_)) {
    if (GetDlgCtrlID(child) == id) return child;
  }
  return nullptr;
}

HWND OpenWindow::Control(int id) const {
  HWND control = nullptr;
  if (!Holds([&] { return (control = FindControl(id)) != nullptr; })) {
    throw DriverError("No control " + std::to_string(id) + " in:\n" + Describe());
  }
  return control;
}

bool OpenWindow::HasControl(int id) const { return FindControl(id) != nullptr; }

std::string OpenWindow::Text(int id) const { return TextOf(Control(id)); }

bool OpenWindow::IsVisible(int id) const {
  const HWND control = FindControl(id);
  return control != nullptr && IsWindowVisible(control);
}

void OpenWindow::ClickInside(HWND control, POINT place) const {
  if (GetForegroundWindow() != window_) SetForegroundWindow(window_);
  POINT onScreen{};
  const bool ready = Holds([&] {
    const POINT before = onScreen;
    onScreen = place;
    ClientToScreen(control, &onScreen);
    // A new window may still be on its way to its place.
    if (onScreen.x != before.x || onScreen.y != before.y) return false;
    if (!IsWindowVisible(control) || !IsWindowEnabled(control) || !IsWindowEnabled(window_)) {
      return false;
    }
    if (GetAncestor(WindowFromPoint(onScreen), GA_ROOT) == window_) return true;
    // Another window may still lie over it, and an X window manager that hears late of a click may
    // put a box's owner there.
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    return false;
  });
  if (!ready) {
    HWND above = GetAncestor(WindowFromPoint(onScreen), GA_ROOT);
    throw DriverError("Can't click '" + TextOf(control) + "', under " + ClassOf(above) + " '" +
                      TextOf(above) + "', in:\n" + Describe());
  }
  testing::ClickAt(onScreen);
}

void OpenWindow::ClickMiddle(HWND control) const {
  RECT area{};
  GetClientRect(control, &area);
  ClickInside(control, {area.right / 2, area.bottom / 2});
}

void OpenWindow::Click(int id) const { ClickMiddle(Control(id)); }

void OpenWindow::ClickAt(int id, POINT place) const { ClickInside(Control(id), place); }

void OpenWindow::ClickButton(const std::string& caption) const {
  HWND button = nullptr;
  const bool found = Holds([&] {
    for (HWND child : ChildrenOf(window_)) {
      if (ClassOf(child) == "Button" && CaptionOf(child) == caption) button = child;
    }
    return button != nullptr;
  });
  if (!found) throw DriverError("No button '" + caption + "' in:\n" + Describe());
  ClickMiddle(button);
}

void OpenWindow::Enter(int id, const std::string& text) const {
  Click(id);
  PressKey(VK_HOME, {VK_CONTROL});
  PressKey(VK_END, {VK_CONTROL, VK_SHIFT});
  PressKey(VK_DELETE);
  TypeText(text);
  if (!Holds([&] { return Text(id) == text; })) {
    throw DriverError("'" + text + "' was typed, but the box reads '" + Text(id) + "'");
  }
}

bool OpenWindow::HasFocus(int id) const { return FocusedControl() == Control(id); }

HWND OpenWindow::FocusedControl() const {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &thread);
  return thread.hwndFocus;
}

void OpenWindow::TabTo(int id) const {
  const size_t stops = ChildrenOf(window_).size();
  for (size_t i = 0; i < stops && !HasFocus(id); ++i) {
    HWND before = FocusedControl();
    PressKey(VK_TAB);
    if (!Holds([&] { return FocusedControl() != before; })) break;
  }
  if (!HasFocus(id)) {
    throw DriverError("Tab does not reach control " + std::to_string(id) + " in:\n" + Describe());
  }
}

void OpenWindow::Choose(int id, const std::string& entry) const {
  HWND list = Control(id);
  const LRESULT index = AskWindow(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                  reinterpret_cast<LPARAM>(entry.c_str()));
  if (index == CB_ERR) throw DriverError("No entry '" + entry + "' in the list");
  Click(id);
  Holds([&] { return AskWindow(list, CB_GETDROPPEDSTATE, 0, 0) != 0; });
  PressKey(VK_HOME);
  PressKeys(VK_DOWN, static_cast<int>(index));
  PressKey(VK_RETURN);
  const bool chosen = Holds([&] {
    return AskWindow(list, CB_GETCURSEL, 0, 0) == index &&
           AskWindow(list, CB_GETDROPPEDSTATE, 0, 0) == 0;
  });
  if (!chosen) throw DriverError("Can't choose '" + entry + "', the list reads '" + Text(id) + "'");
}

std::string OpenWindow::Describe() const {
  std::string text = "window '" + Caption() + "'";
  for (HWND child : ChildrenOf(window_)) {
    if (!IsWindowVisible(child)) continue;
    text += "\n  " + ClassOf(child) + " " + std::to_string(GetDlgCtrlID(child)) + " '" +
            TextOf(child) + "'" + (IsWindowEnabled(child) ? "" : " (disabled)");
  }
  return text;
}

}  // namespace tallyrun::testing
