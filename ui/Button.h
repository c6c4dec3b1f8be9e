// Push buttons, option buttons and check boxes.
#pragma once

#include <string>

#include "ui/Control.h"

namespace tallyrun {

class Button : public Control {
 public:
  Event<> Click;

  void Create(ControlParent& parent, int id, const std::string& caption,
              const std::string& toolTip = "");
  int WidthIn(const LayoutArea& area) const override;
  void OnCommand(int code) override;
};

// One of a group; an option created right after another one joins its group.
class OptionButton : public Control {
 public:
  // Raised when the option turns from off to on, by the clerk or by SetValue.
  Event<> Click;

  void Create(ControlParent& parent, int id, const std::string& caption,
              const std::string& toolTip = "");
  bool Value() const;
  // Turning it on turns the others of its parent off.
  void SetValue(bool on);
  int WidthIn(const LayoutArea& area) const override;
  void OnCommand(int code) override;

 private:
  void TurnOn();

  bool wasOn_ = false;  // what the clerk's click has to be told from
};

class CheckBox : public Control {
 public:
  // Raised whenever the mark changes, by the clerk or by SetValue.
  Event<> Click;

  void Create(ControlParent& parent, int id, const std::string& caption,
              const std::string& toolTip = "");
  bool Value() const;
  void SetValue(bool on);
  int WidthIn(const LayoutArea& area) const override;
  void OnCommand(int code) override;
};

}  // namespace tallyrun
