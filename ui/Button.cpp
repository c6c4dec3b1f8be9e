#include "ui/Button.h"

#include "ui/Form.h"

namespace tallyrun {
namespace {

bool IsChecked(HWND button) { return SendMessageA(button, BM_GETCHECK, 0, 0) == BST_CHECKED; }

}  // namespace

void Button::Create(ControlParent& parent, int id, const std::string& caption,
                    const std::string& toolTip) {
  CreateControl(parent, id, WC_BUTTONA, caption, WS_TABSTOP | WS_GROUP | BS_PUSHBUTTON);
  SetToolTip(toolTip);
}

void Button::OnCommand(int code) {
  if (code == BN_CLICKED) Click.Raise();
}

void OptionButton::Create(ControlParent& parent, int id, const std::string& caption) {
  // A group is a run of options; the arrow keys stay within it.
  const auto& others = parent.ParentForm().Controls();
  const bool follows =
      !others.empty() && dynamic_cast<const OptionButton*>(others.back()) != nullptr;
  CreateControl(parent, id, WC_BUTTONA, caption,
                BS_AUTORADIOBUTTON | (follows ? 0 : WS_GROUP | WS_TABSTOP));
  wasOn_ = false;
}

bool OptionButton::Value() const { return IsChecked(Handle()); }

void OptionButton::TurnOn() {
  if (wasOn_) return;
  for (Control* control : Owner()->Controls()) {
    auto* const option = dynamic_cast<OptionButton*>(control);
    if (option == nullptr || GetParent(option->Handle()) != GetParent(Handle())) continue;
    option->wasOn_ = option == this;
    SendMessageA(option->Handle(), BM_SETCHECK, option->wasOn_ ? BST_CHECKED : BST_UNCHECKED, 0);
  }
  Click.Raise();
}

// By the time a click comes here, the button has turned itself on.
void OptionButton::OnCommand(int code) {
  if (code == BN_CLICKED && Value()) TurnOn();
}

void CheckBox::Create(ControlParent& parent, int id, const std::string& caption,
                      const std::string& toolTip) {
  CreateControl(parent, id, WC_BUTTONA, caption, WS_TABSTOP | WS_GROUP | BS_AUTOCHECKBOX);
  SetToolTip(toolTip);
}

bool CheckBox::Value() const { return IsChecked(Handle()); }

}  // namespace tallyrun
