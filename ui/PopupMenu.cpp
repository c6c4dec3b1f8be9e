#include "ui/PopupMenu.h"

#include "core/RuntimeError.h"
#include "ui/Form.h"

namespace tallyrun {

int PopupMenu::AddItem(MenuItem& item, const std::string& text) {
  if (!menu_) menu_.Reset(CreatePopupMenu());
  const int number = static_cast<int>(items_.size()) + 1;
  if (AppendMenuA(menu_.Get(), MF_STRING, static_cast<UINT_PTR>(number), text.c_str()) == FALSE) {
    throw RuntimeError(ErrorKind::OutOfMemory);
  }
  items_.push_back(&item);
  return number;
}

void PopupMenu::Show(const Control& over, POINT at) {
  ClientToScreen(over.Handle(), &at);
  const BOOL chosen = TrackPopupMenuEx(menu_.Get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y,
                                       over.Owner()->Handle(), nullptr);
  if (chosen > 0 && static_cast<std::size_t>(chosen) <= items_.size()) {
    items_[static_cast<std::size_t>(chosen) - 1]->Click.Raise();
  }
}

}  // namespace tallyrun
