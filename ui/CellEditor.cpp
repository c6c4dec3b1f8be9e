#include "ui/CellEditor.h"

#include "ui/Form.h"

namespace tallyrun {

void PlaceOverCell(const FlexGridControl& grid, Control& editor) {
  editor.Move(grid.CellBoundsInParent(grid.Grid().Row(), grid.Grid().Col()));
}

void ShowOverCell(FlexGridControl& grid, Control& editor) {
  // First, as scrolling closes an editor.
  grid.ShowCell(grid.Grid().Row(), grid.Grid().Col());
  PlaceOverCell(grid, editor);
  editor.SetVisible(true);
  editor.SetFocus();
}

void ShowOverCell(FlexGridControl& grid, TextBox& editor, const std::string& text) {
  editor.SetText(text);
  ShowOverCell(grid, editor);
  editor.SelectAll();
}

void HideOverCell(FlexGridControl& grid, Control& editor) {
  // First, or the system would give the focus to whatever comes next; also when the form is not in
  // front and only remembers the editor.
  if (editor.Owner() != nullptr && editor.Owner()->RemembersFocusOn(editor)) grid.SetFocus();
  editor.SetVisible(false);
}

}  // namespace tallyrun
