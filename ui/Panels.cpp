#include "ui/Panels.h"

#include "ui/Notifications.h"

namespace tallyrun {
namespace {

constexpr char kFrameClass[] = "TallyrunFrame";

void RegisterFrameClass() {
  WNDCLASSEXA windowClass = {};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = DefWindowProcA;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = kFrameClass;
  // A second registration fails and changes nothing.
  RegisterClassExA(&windowClass);
}

}  // namespace

void Label::Create(ControlParent& parent, int id, const std::string& caption,
                   const std::string& toolTip) {
  // SS_NOTIFY lets the mouse reach the label, for its tool tip.
  CreateControl(parent, WC_STATICA, caption,
                WS_VISIBLE | WS_GROUP | SS_LEFT | SS_NOTIFY | SS_NOPREFIX | SS_CENTERIMAGE, 0, id);
  SetToolTip(toolTip);
}

void Frame::Create(ControlParent& parent, int id, const std::string& toolTip) {
  RegisterFrameClass();
  CreateControl(parent, kFrameClass, "", WS_VISIBLE | WS_CLIPCHILDREN | WS_BORDER,
                WS_EX_CONTROLPARENT, id);
  SetToolTip(toolTip);
}

LRESULT Frame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND || message == WM_NOTIFY) {
    if (const auto answer = ReflectNotification(message, wParam, lParam)) return *answer;
  }
  return Control::OnMessage(message, wParam, lParam);
}

}  // namespace tallyrun
