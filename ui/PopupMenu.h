// A menu that pops up at the pointer.
#pragma once

#include <string>
#include <vector>

#include "ui/Event.h"
#include "ui/Handles.h"

namespace tallyrun {

class Form;

class MenuItem {
 public:
  Event<> Click;
};

class PopupMenu {
 public:
  // Adds `item` with its text; the item must outlive the menu. Gives back its number, from 1.
  int AddItem(MenuItem& item, const std::string& text);
  // Shows the menu over `form` at the pointer and raises the Click of the item chosen.
  void Show(Form& form);
  // The menu's handle, for who drives the program from outside.
  HMENU Handle() const { return menu_.Get(); }

 private:
  UniqueMenu menu_;
  std::vector<MenuItem*> items_;
};

}  // namespace tallyrun
