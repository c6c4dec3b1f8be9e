// The main window's cell editors: a text box and a date picker laid over the current cell.
#include "app/CellRules.h"
#include "app/frmMain.h"
#include "app/frmMainIds.h"
#include "core/grid/ColumnWidths.h"
#include "ui/CellEditor.h"

namespace tallyrun {
namespace {

constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr int kRightButton = 2;

}  // namespace

void frmMain::flxEntries_KeyPress(KeyEvent& key) {
  if (key.key != kEnter) return;
  key.handled = true;
  if (key.repeated) return;  // a held key would open and keep editors in turn
  if (IsEditable(Grid().Col(), EditTrigger::Enter, chkFreeEntry.Value())) ShowCellEditor();
}

void frmMain::flxEntries_DblClick() {
  if (IsEditable(Grid().Col(), EditTrigger::DoubleClick, chkFreeEntry.Value())) ShowCellEditor();
}

void frmMain::flxEntries_MouseUp(MouseEvent mouse) {
  if (mouse.button == kRightButton) mnuCopyCell.Show(flxEntries, mouse.x, mouse.y);
}

void frmMain::flxEntries_Scroll() { HideCellEditors(); }

void frmMain::ShowCellEditor() {
  const int row = Grid().Row();
  const int col = Grid().Col();
  if (row < 1) return;  // a sheet without rows has no cell to edit
  CreateCellEditors();
  HideCellEditors();
  if (IsDateColumn(col)) {
    if (const std::optional<Date> date = EditorDateFor(Grid(), row, col)) dtpDate.SetValue(*date);
    ShowOverCell(flxEntries, dtpDate);
  } else {
    ShowOverCell(flxEntries, txtEditor, EditorTextFor(Grid(), row, col));
  }
}

// Made with the first edit, as the system makes a calendar with every date picker, and the start
// need not wait for it. They lie over the sheet.
void frmMain::CreateCellEditors() {
  if (txtEditor.Handle() != nullptr) return;
  txtEditor.Create(*this, frmMainIds::kTxtEditor);
  txtEditor.SetVisible(false);
  txtEditor.PutBehind(chkFreeEntry);
  dtpDate.Create(*this, frmMainIds::kDtpDate);
  dtpDate.SetVisible(false);
  dtpDate.PutBehind(txtEditor);
  dtpDate.SetValue(dayOfStart_);
}

void frmMain::txtEditor_KeyPress(KeyEvent& key) {
  if (key.key == kEnter) {
    key.handled = true;
    if (!key.repeated) CommitCellEditor();
  } else if (key.key == kEscape) {
    key.handled = true;
    HideCellEditors();
  }
}

void frmMain::CommitCellEditor() {
  FlexGrid& grid = Grid();
  const int topRow = grid.TopRow();
  const std::string text = TidiedCellText(grid.Col(), txtEditor.Text());
  txtEditor.SetText(text);  // also what stands there under a refusal
  if (!CommitCellText(grid, grid.Row(), grid.Col(), text, chkFreeEntry.Value())) return;
  HideCellEditors();
  grid.SetTopRow(topRow);
}

void frmMain::txtEditor_LostFocus() { HideCellEditors(); }

void frmMain::dtpDate_Change() {
  WriteDateIntoCell();
  PlaceOverCell(flxEntries, dtpDate);  // the cell may have moved with its column's width
}

void frmMain::dtpDate_KeyPress(KeyEvent& key) {
  if (key.key == kEnter) {
    key.handled = true;
    if (key.repeated) return;
    WriteDateIntoCell();
    HideCellEditors();
  } else if (key.key == kEscape) {
    key.handled = true;
    HideCellEditors();
  }
}

void frmMain::dtpDate_LostFocus() { HideCellEditors(); }

void frmMain::WriteDateIntoCell() {
  const std::optional<Date> date = dtpDate.Value();
  Grid().SetText(Grid().Row(), Grid().Col(), date ? FormatDdMmmYyyy(*date) : std::string());
  FitColumnWidth(Grid(), Grid().Row(), Grid().Col());
}

// Whatever was being typed is dropped.
void frmMain::HideCellEditors() {
  HideOverCell(flxEntries, txtEditor);
  HideOverCell(flxEntries, dtpDate);
}

}  // namespace tallyrun
