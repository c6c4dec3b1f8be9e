#include "app/frmMain.h"

#include <algorithm>

#include "app/CellPaste.h"
#include "app/CellRules.h"
#include "app/ConfirmLoading.h"
#include "app/EntrySearch.h"
#include "app/FillAutoFields.h"
#include "app/MergeEqualEntries.h"
#include "app/TradeFile.h"
#include "core/Platform.h"
#include "core/RuntimeError.h"
#include "core/entry/SortEntries.h"
#include "core/files/modFileIO.h"
#include "core/modGlobal.h"
#include "lists/ListKind.h"
#include "reports/InstructionReport.h"
#include "transfer/CheckAlreadySent.h"
#include "transfer/UploadEntryFile.h"

namespace tallyrun {
namespace {

constexpr int kDefaultWidth = 1240;  // of the client area, pixels at 96 DPI: all columns of a day
constexpr int kDefaultHeight = 600;

}  // namespace

frmMain::frmMain()
    : Form(frmMainIds::kWindowClass,
           {.width = kDefaultWidth, .height = kDefaultHeight, .endsProgram = true}) {
  mnuCopyCell.AddItem(mnuCopy, "Copy");
  mnuCopyCell.AddItem(mnuPaste, "Paste");
  mnuCopyCell.AddItem(mnuDelete, "Delete");
  ConnectHandlers();
}

void frmMain::ConnectHandlers() {
  // Releases of INSERT and DELETE, whichever control has the focus; Exit has its own rule.
  On(KeyUp, &frmMain::Form_KeyUp);
  On(btnExit.KeyUp, &frmMain::btnExit_KeyUp);

  On(optPayIn.Click, &frmMain::optPayIn_Click);
  On(optPayOut.Click, &frmMain::optPayOut_Click);
  On(btnLoadFromBTFile.Click, &frmMain::btnLoadFromBTFile_Click);
  On(btnReload.Click, &frmMain::btnReload_Click);
  On(btnSave.Click, &frmMain::btnSave_Click);
  On(btnSearch.Click, &frmMain::btnSearch_Click);

  On(flxEntries.KeyPress, &frmMain::flxEntries_KeyPress);
  On(flxEntries.DblClick, &frmMain::flxEntries_DblClick);
  On(flxEntries.RightClick, &frmMain::flxEntries_RightClick);
  cellEditor_.Use(txtEditor);
  cellEditor_.Use(dtpDate);
  On(cellEditor_.Keep, &frmMain::cellEditor_Keep);
  On(dtpDate.Change, &frmMain::dtpDate_Change);
  On(mnuCopy.Click, &frmMain::mnuCopy_Click);
  On(mnuPaste.Click, &frmMain::mnuPaste_Click);
  On(mnuDelete.Click, &frmMain::mnuDelete_Click);

  On(btnAutoFields.Click, &frmMain::btnAutoFields_Click);
  On(btnSummarize.Click, &frmMain::btnSummarize_Click);
  On(btnCheck.Click, &frmMain::btnCheck_Click);
  On(btnReport.Click, &frmMain::btnReport_Click);
  On(btnSend.Click, &frmMain::btnSend_Click);
  On(btnList.Click, &frmMain::btnList_Click);
  On(btnSettings.Click, &frmMain::btnSettings_Click);
  On(btnExit.Click, &frmMain::btnExit_Click);
}

void frmMain::Form_Load() { SetupEntryGrid(); }

void frmMain::Form_Unload() {
  listWindow_.Unload();
  holdingWindow_.Unload();
  settingsWindow_.Unload();
}

void frmMain::Form_Resize() { cellEditor_.Close(); }

void frmMain::SetupEntryGrid() {
  FlexGrid& grid = Grid();
  grid.SetRows(2);
  grid.SetCols(EntryColumn::kCount);
  for (int col = 0; col < EntryColumn::kCount; ++col) {
    const char* const caption = kEntryCaptions[static_cast<std::size_t>(col)];
    grid.SetText(0, col, caption);
    grid.SetColWidth(col, grid.Measurer().WidthOf(caption) + kCellMargin);
  }
  ClearEntryGrid(grid);

  for (const SearchColumn& column : kSearchColumns) cmbSearch.AddItem(column.caption);
  cmbSearch.SetListIndex(0);

  SkipNextLoad = false;
  optPayIn.TurnOn();
  const Date today = DateOf(ThePlatform().Now());
  dtpDate.SetValue(today);
  dtpPayInOrPayOut.SetValue(today);
}

void frmMain::Form_KeyUp(KeyEvent& key) {
  if (key.key == VK_DELETE) {
    DeleteSelectedRows(Grid());
  } else if (key.key == VK_INSERT) {
    AddRowAtTradeDate();
    KeyEvent enter{.key = '\r'};
    flxEntries_KeyPress(enter);
  }
}

// INSERT on Exit adds the row but opens no editor.
void frmMain::btnExit_KeyUp(KeyEvent& key) {
  if (key.key == VK_INSERT) {
    AddRowAtTradeDate();
  } else {
    Form_KeyUp(key);
  }
}

void frmMain::AddRowAtTradeDate() {
  cellEditor_.Close();  // while the cell it edits is still the current one
  AddEntryRow(Grid());
  Grid().SetCol(EntryColumn::kTradeDate);
}

void frmMain::optPayIn_Click() { SwitchMode(kPayIn, optPayOut); }

void frmMain::optPayOut_Click() { SwitchMode(kPayOut, optPayIn); }

void frmMain::SwitchMode(const EntryModeTexts& mode, OptionButton& other) {
  const bool leavesOtherMode = !EntryMode.name.empty() && EntryMode != mode;
  if (leavesOtherMode && !IsGridEmpty(Grid())) {
    if (!ConfirmLoading()) {
      SkipNextLoad = true;
      other.TurnOn();
      other.SetFocus();
      return;
    }
    ClearEntryGrid(Grid());
  }
  EntryMode = mode;
  SetCaption(CaptionFor(mode.name));
  flxEntries.SetToolTip(mode.name +
                        " entries. Press INSERT key to add a new row or DELETE key to remove the "
                        "selected row(s).");
  Relayout();  // the day's picker goes to the chosen mode
  btnLoadFromBTFile.SetText(mode.importCaption);
  btnCheck.SetEnabled(mode == kPayIn);
}

bool frmMain::TakeSkipNextLoad() {
  const bool skip = SkipNextLoad;
  SkipNextLoad = false;
  return skip;
}

void frmMain::btnLoadFromBTFile_Click() {
  const std::optional<std::string> path = ThePlatform().AskForFile(
      {"Choose Text FIle", {{"Text files (*.TXT)", "*.TXT"}, {"All Files (*.*)", "*.*"}}});
  if (!path) return;
  const std::optional<TradeFileName> name = ReadTradeFileName(*path);
  if (!name) {
    Tell("Unknown file name format.", "Invalid File", MessageIcon::Critical);
    return;
  }
  dtpPayInOrPayOut.SetValue(name->day);
  // A day that the picker cannot show would leave the rows under another one.
  if (PickedDay() != name->day) throw RuntimeError(ErrorKind::InvalidCall);
  (name->mode == kPayIn ? optPayIn : optPayOut).TurnOn();
  if (TakeSkipNextLoad()) return;
  if (!LoadTradeFile(Grid(), *path, EntryMode.tradeSide)) return;
  SortEntries(Grid());
}

void frmMain::btnReload_Click() {
  if (!Ask("Are you sure to load the " + DayFileText() + " ?", "Load Confirmation",
           MessageIcon::Question)) {
    return;
  }
  if (TakeSkipNextLoad()) return;
  LoadFileIntoGrid(EntryFilePath(PickedDay()), Grid());
}

void frmMain::btnSave_Click() {
  if (!Ask("Are you sure to save the " + DayFileText() + " ?", "Save Confirmation",
           MessageIcon::Question)) {
    return;
  }
  SaveGridToFile(Grid(), EntryFilePath(PickedDay()));
  Tell(DayFileText() + " saved successfully.", "File Saved.", MessageIcon::Information);
}

void frmMain::btnSearch_Click() {
  const int index = std::max(0, cmbSearch.ListIndex());
  const std::optional<int> row = FindEntry(Grid(), kSearchColumns[index].col, txtSearch.Text());
  if (!row) {
    Tell("No such record found.", "Record not found.", MessageIcon::Critical);
    return;
  }
  ShowFoundEntry(Grid(), *row);
}

void frmMain::flxEntries_KeyPress(KeyEvent& key) {
  if (!key.Take(VK_RETURN)) return;
  if (IsEditable(Grid().Col(), EditTrigger::Enter, chkFreeEntry.Value())) ShowCellEditor();
}

void frmMain::flxEntries_DblClick() {
  if (IsEditable(Grid().Col(), EditTrigger::DoubleClick, chkFreeEntry.Value())) ShowCellEditor();
}

void frmMain::flxEntries_RightClick(POINT at) { mnuCopyCell.Show(flxEntries, at); }

void frmMain::ShowCellEditor() {
  const int row = Grid().Row();
  const int col = Grid().Col();
  if (IsDateColumn(col)) {
    if (const std::optional<Date> date = EditorDateFor(Grid(), row, col)) dtpDate.SetValue(*date);
    cellEditor_.Open(dtpDate);
  } else {
    cellEditor_.Open(txtEditor, EditorTextFor(Grid(), row, col));
  }
}

void frmMain::cellEditor_Keep() {
  FlexGrid& grid = Grid();
  if (IsDateColumn(grid.Col())) {
    dtpDate_Change();
  } else {
    const std::string text = TidiedCellText(grid.Col(), txtEditor.Text());
    txtEditor.SetText(text);  // also what stands there under a refusal
    if (!CommitCellText(grid, grid.Row(), grid.Col(), text, chkFreeEntry.Value())) return;
  }
  cellEditor_.Close();
}

void frmMain::dtpDate_Change() {
  const std::optional<Date> date = dtpDate.Value();
  Grid().SetText(Grid().Row(), Grid().Col(), date ? FormatDdMmmYyyy(*date) : std::string());
  FitColumnWidth(Grid(), Grid().Row(), Grid().Col());
  cellEditor_.Follow();  // the cell may have moved with its column's width
}

void frmMain::mnuCopy_Click() { copyRow_ = Grid().Row(); }

void frmMain::mnuPaste_Click() {
  if (copyRow_) PasteIntoSelection(Grid(), *copyRow_);
}

void frmMain::mnuDelete_Click() { DeleteSelectedRows(Grid()); }

void frmMain::btnAutoFields_Click() {
  SortEntries(Grid());
  FillAutoFields(Grid(), PickedDay());
}

void frmMain::btnSummarize_Click() {
  if (!Ask("Are you sure to summarize individual BOs ISIN quantities?", "Confirm Summarize",
           MessageIcon::Question)) {
    return;
  }
  SortEntries(Grid());
  MergeEqualEntries(Grid());
  FillInternalRefNos(Grid());
}

void frmMain::btnCheck_Click() {
  if (CheckHoldings(HoldingCheckHere())) return;
  Tell("Holding balance checking completed.", "Checking Complete.", MessageIcon::Information);
}

void frmMain::btnReport_Click() {
  if (optPayIn.Value()) {
    BuildPayInReport(Grid());
  } else if (optPayOut.Value()) {
    BuildPayOutReport(Grid());
  }
}

void frmMain::btnSend_Click() {
  if (!Ask("Are you sure to send the entered records to KTX as " + DayFileText() + " ?",
           EntryMode.name + " of " + FormatDdMmmYyyy(PickedDay()) + " Send Confirmation",
           MessageIcon::Question)) {
    return;
  }
  BusyScope busy(*this);
  busy.Show("...Sending records to KTX...Please wait.");
  if (HasMissingField(Grid())) {
    flxEntries.ShowCell(Grid().Row(), Grid().Col());
    return;
  }
  if (HasUnknownBoid(Grid())) return;
  if (HasUnknownIsin(Grid())) return;
  if (HasWrongInternalRefPrefix(Grid())) return;
  SortEntries(Grid());
  if (CheckSummarized(HoldingCheckHere())) return;
  if (EntryMode == kPayIn && CheckHoldings(HoldingCheckHere())) return;
  const EntrySend send(Grid(), PickedDay(), busy);
  if (CheckAlreadySent(send)) return;
  WriteWholeFile(send.workingFolder + send.fileName, send.sheet);
  UploadEntryFile(send);
}

void frmMain::btnList_Click() {
  CurrentListKind = kBoKind;
  listWindow_.Show();
}

void frmMain::btnSettings_Click() { ShowSettings(); }

void frmMain::ShowSettings() { settingsWindow_.ShowModal(this); }

void frmMain::btnExit_Click() { Unload(); }

Date frmMain::PickedDay() const {
  return dtpPayInOrPayOut.Value().value_or(DateOf(ThePlatform().Now()));
}

std::string frmMain::DayFileText() const {
  return EntryMode.name + " file of " + FormatDdMmmYyyy(PickedDay());
}

HoldingCheck frmMain::HoldingCheckHere() {
  return {Grid(), *this, [this] { flxEntries.Redraw(); },
          [this] { holdingWindow_.ShowFresh(this); }};
}

}  // namespace tallyrun
