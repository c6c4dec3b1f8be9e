#include "ui/CellEditor.h"

#include <utility>

#include "ui/Form.h"

namespace tallyrun {

CellEditor::CellEditor(FlexGridControl& grid) : grid_(grid) {
  grid_.Scroll.Set([this] { Close(); });
}

void CellEditor::Use(Control& control) {
  control.KeyPress.Set([this](KeyEvent& key) { TakeKey(key); });
  control.LostFocus.Set([this] { Close(); });
}

void CellEditor::TakeKey(KeyEvent& key) {
  if (key.Take(VK_RETURN)) Keep.Raise();
  if (key.key != VK_ESCAPE) return;
  key.handled = true;
  Close();
}

void CellEditor::Open(Control& control) {
  Close();
  // First, as scrolling closes an editor.
  grid_.ShowCell(grid_.Grid().Row(), grid_.Grid().Col());
  open_ = &control;
  Follow();
  control.SetVisible(true);
  control.SetFocus();
}

void CellEditor::Open(TextBox& box, const std::string& text) {
  Close();
  box.SetText(text);
  Open(box);
  box.SelectAll();
}

void CellEditor::Follow() {
  const FlexGrid& grid = grid_.Grid();
  if (open_ != nullptr) open_->Move(grid_.CellBoundsInParent(grid.Row(), grid.Col()));
}

void CellEditor::Close() {
  Control* const control = std::exchange(open_, nullptr);
  if (control == nullptr) return;
  // First, or the system would give the focus to whatever comes next; also when the form is not in
  // front and only remembers the editor.
  if (control->Owner()->RemembersFocusOn(*control)) grid_.SetFocus();
  control->SetVisible(false);
}

}  // namespace tallyrun
