// Push buttons, option buttons and check boxes.
#pragma once

#include <string>

#include "ui/Control.h"
#include "ui/Layout.h"

namespace tallyrun {

class Button : public Control {
 public:
  Event<> Click;

  void Create(ControlParent& parent, int id, const std::string& caption,
              const std::string& toolTip = "");
  int WidthIn(const LayoutArea& area) const override { return area.ButtonWidth(Text()); }

 protected:
  void OnCommand(int code) override;
};

// One of a group; an option created right after another one joins its group.
class OptionButton : public Control {
 public:
  // Raised when the option turns from off to on, by the clerk or by TurnOn.
  Event<> Click;

  void Create(ControlParent& parent, int id, const std::string& caption);
  bool Value() const;
  // Turns the others of its parent off. Does nothing when it is on.
  void TurnOn();
  int WidthIn(const LayoutArea& area) const override { return area.OptionWidth(Text()); }

 protected:
  void OnCommand(int code) override;

 private:
  bool wasOn_ = false;  // what the clerk's click has to be told from
};

class CheckBox : public Control {
 public:
  void Create(ControlParent& parent, int id, const std::string& caption,
              const std::string& toolTip);
  bool Value() const;
  int WidthIn(const LayoutArea& area) const override { return area.OptionWidth(Text()); }
};

}  // namespace tallyrun
