#include "ui/Button.h"

#include "ui/Form.h"

namespace tallyrun {
namespace {

bool IsChecked(HWND button) {
  return button != nullptr && SendMessageA(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void SetChecked(HWND button, bool checked) {
  SendMessageA(button, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

}  // namespace

void Button::Create(ControlParent& parent, int id, const std::string& caption,
                    const std::string& toolTip) {
  CreateControl(parent, WC_BUTTONA, caption, WS_VISIBLE | WS_TABSTOP | WS_GROUP | BS_PUSHBUTTON, 0,
                id);
  SetToolTip(toolTip);
}

int Button::WidthIn(const LayoutArea& area) const { return area.ButtonWidth(Text()); }

void Button::OnCommand(int code) {
  if (code == BN_CLICKED) Click.Raise();
}

void OptionButton::Create(ControlParent& parent, int id, const std::string& caption,
                          const std::string& toolTip) {
  // A group is a run of options; the arrow keys stay within it.
  const auto& others = parent.ParentForm().Controls();
  const bool follows =
      !others.empty() && dynamic_cast<const OptionButton*>(others.back()) != nullptr;
  CreateControl(parent, WC_BUTTONA, caption,
                WS_VISIBLE | BS_AUTORADIOBUTTON | (follows ? 0 : WS_GROUP | WS_TABSTOP), 0, id);
  wasOn_ = false;
  SetToolTip(toolTip);
}

int OptionButton::WidthIn(const LayoutArea& area) const { return area.OptionWidth(Text()); }

bool OptionButton::Value() const { return IsChecked(Handle()); }

void OptionButton::SetValue(bool on) {
  if (Handle() == nullptr || on == Value()) return;
  if (on) {
    TurnOn();
    return;
  }
  SetChecked(Handle(), false);
  wasOn_ = false;
}

void OptionButton::TurnOn() {
  for (Control* control : Owner()->Controls()) {
    auto* const other = dynamic_cast<OptionButton*>(control);
    if (other == nullptr || other == this || GetParent(other->Handle()) != GetParent(Handle())) {
      continue;
    }
    SetChecked(other->Handle(), false);
    other->wasOn_ = false;
  }
  SetChecked(Handle(), true);
  wasOn_ = true;
  Click.Raise();
}

void OptionButton::OnCommand(int code) {
  if (code == BN_CLICKED && Value() && !wasOn_) TurnOn();
}

void CheckBox::Create(ControlParent& parent, int id, const std::string& caption,
                      const std::string& toolTip) {
  CreateControl(parent, WC_BUTTONA, caption, WS_VISIBLE | WS_TABSTOP | WS_GROUP | BS_AUTOCHECKBOX,
                0, id);
  SetToolTip(toolTip);
}

int CheckBox::WidthIn(const LayoutArea& area) const { return area.OptionWidth(Text()); }

bool CheckBox::Value() const { return IsChecked(Handle()); }

void CheckBox::SetValue(bool on) {
  if (Handle() == nullptr || on == Value()) return;
  SetChecked(Handle(), on);
  Click.Raise();
}

void CheckBox::OnCommand(int code) {
  if (code == BN_CLICKED) Click.Raise();
}

}  // namespace tallyrun
