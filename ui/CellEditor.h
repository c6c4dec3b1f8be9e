// Editing a grid's current cell in place: a control of the form is laid over what can be seen of
// it. Enter asks the form to keep what the control holds; Escape, another control that takes the
// focus and a grid that scrolls drop it. When a cell is edited, what is typed there and what of it
// is kept is the form's business.
#pragma once

#include <string>

#include "ui/FlexGridControl.h"
#include "ui/TextBox.h"

namespace tallyrun {

class CellEditor {
 public:
  // For the cells of `grid`, whose Scroll is the editor's own. Both belong to one form.
  explicit CellEditor(FlexGridControl& grid);
  CellEditor(const CellEditor&) = delete;
  CellEditor& operator=(const CellEditor&) = delete;

  // Enter in the open control; once, however long the key is held. Who keeps what it holds closes
  // the editor; who refuses it leaves it open.
  Event<> Keep;

  // Lets `control`, whose keys and focus are the editor's own from then on, be opened.
  void Use(Control& control);

  // Scrolls the current cell into sight, lays the control over it, in place of one that is open,
  // and shows it with the focus.
  void Open(Control& control);
  // The same for a text box, with `text` in it, all of it selected.
  void Open(TextBox& box, const std::string& text);
  // Moves the open control over the current cell, wherever that stands now.
  void Follow();
  // Hides the open control. The grid gets the focus when the control had it; the view does not
  // move.
  void Close();

 private:
  void TakeKey(KeyEvent& key);

  FlexGridControl& grid_;
  Control* open_ = nullptr;
};

}  // namespace tallyrun
