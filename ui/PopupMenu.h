// A menu that pops up over a control.
#pragma once

#include <string>
#include <vector>

#include "ui/Event.h"
#include "ui/Handles.h"

namespace tallyrun {

class Control;

class MenuItem {
 public:
  Event<> Click;
};

class PopupMenu {
 public:
  // Adds `item` with its text; the item must outlive the menu. Gives back its number, from 1.
  int AddItem(MenuItem& item, const std::string& text);
  // Shows the menu at a place in the control's client pixels and raises the chosen item's Click.
  void Show(const Control& over, POINT at);
  // The menu's handle, for who drives the program from outside.
  HMENU Handle() const { return menu_.Get(); }

 private:
  UniqueMenu menu_;
  std::vector<MenuItem*> items_;
};

}  // namespace tallyrun
