#include "ui/Panels.h"

namespace tallyrun {
namespace {

constexpr char kFrameClass[] = "TallyrunFrame";

}  // namespace

void Label::Create(ControlParent& parent, int id, const std::string& caption,
                   const std::string& toolTip) {
  // SS_NOTIFY lets the mouse reach the label, for its tool tip.
  CreateControl(parent, id, WC_STATICA, caption,
                WS_GROUP | SS_LEFT | SS_NOTIFY | SS_NOPREFIX | SS_CENTERIMAGE);
  SetToolTip(toolTip);
}

void Frame::Create(ControlParent& parent, int id, const std::string& toolTip) {
  RegisterWindowClass(kFrameClass, DefWindowProcA);
  CreateControl(parent, id, kFrameClass, "", WS_CLIPCHILDREN | WS_BORDER, WS_EX_CONTROLPARENT);
  SetToolTip(toolTip);
}

LRESULT Frame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND || message == WM_NOTIFY) {
    if (const auto answer = Reflect(message, wParam, lParam)) return *answer;
  }
  return Control::OnMessage(message, wParam, lParam);
}

}  // namespace tallyrun
