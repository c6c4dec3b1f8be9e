#include "lists/frmList.h"

#include <initializer_list>

#include "core/Platform.h"
#include "core/entry/BoIdFormat.h"
#include "core/files/modFileIO.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/GridRows.h"
#include "core/masterlists/Lists.h"
#include "core/text/Conversion.h"
#include "lists/BackupFiles.h"
#include "lists/ListExchange.h"
#include "lists/ListKind.h"
#include "lists/ListRows.h"

namespace tallyrun {
namespace {

constexpr int kBoIdCol = 1;

}  // namespace

frmList::frmList()
    : Form(frmListIds::kWindowClass, {.width = 760, .height = 480, .fontFace = "Tahoma"}) {
  ConnectHandlers();
}

void frmList::ConnectHandlers() {
  On(KeyUp, &frmList::Form_KeyUp);
  On(cmbListOf.Click, &frmList::cmbListOf_Click);
  On(txtItem.KeyDown, &frmList::txtItem_KeyDown);
  On(flxList.DblClick, &frmList::flxList_DblClick);
  On(flxList.KeyPress, &frmList::flxList_KeyPress);
  cellEditor_.Use(txtEditor);
  On(cellEditor_.Keep, &frmList::txtEditor_Keep);
  On(btnAdd.Click, &frmList::btnAdd_Click);
  On(btnRemove.Click, &frmList::btnRemove_Click);
  On(btnReload.Click, &frmList::btnReload_Click);
  On(btnSave.Click, &frmList::btnSave_Click);
  On(btnSaveAsBackup.Click, &frmList::btnSaveAsBackup_Click);
  On(btnLoadBackup.Click, &frmList::btnLoadBackup_Click);
  On(btnUpdateList.Click, &frmList::btnUpdateList_Click);
  On(btnClose.Click, &frmList::btnClose_Click);
  On(lstBackups.DblClick, &frmList::lstBackups_DblClick);
  On(btnLoad_Backup.Click, &frmList::btnLoad_Backup_Click);
  On(btnCancel_Backup.Click, &frmList::btnCancel_Backup_Click);
  On(btnDelete_Backup.Click, &frmList::btnDelete_Backup_Click);
}

void frmList::Show() {
  if (IsLoaded()) CurrentListKind = ChosenKind();
  Form::Show();
}

void frmList::Form_Load() {
  cmbListOf.AddItem(ListTextsOf(kBoKind).title);
  cmbListOf.AddItem(ListTextsOf(kIsinKind).title);
  SetupListGrid();
  cmbListOf.SetListIndex(CurrentListKind == kBoKind ? 0 : 1);
  // Not the chooser: an arrow key there would drop the edits with the list.
  flxList.SetFocus();
}

void frmList::Form_Resize() { cellEditor_.Close(); }

// Only a control that edits text keeps DELETE for itself. Under the open backup frame the list
// stands still.
void frmList::Form_KeyUp(KeyEvent& key) {
  if (frameBackup.Visible()) return;
  if (key.key == VK_INSERT) {
    AddEntryRow(Grid());
    BeginCellEdit();
  } else if (key.key == VK_DELETE) {
    DeleteSelectedRows(Grid());
  }
}

void frmList::cmbListOf_Click() {
  CurrentListKind = ChosenKind();
  LoadList();
}

void frmList::txtItem_KeyDown(KeyEvent& key) {
  if (!key.Take(VK_RETURN)) return;
  const std::string text(Trim(txtItem.Text()));
  if (text.empty()) return;
  if (const std::optional<int> row = FindRowContaining(Grid(), text)) {
    ShowFoundRow(Grid(), *row);
  } else {
    // The title names BOs for the ISIN list too: clerks know the box by it.
    Tell("There is no such " + CurrentListKind + " in the list.", "BO Not Found.",
         MessageIcon::Critical);
  }
  txtItem.SelectAll();
}

void frmList::flxList_DblClick() { BeginCellEdit(); }

void frmList::flxList_KeyPress(KeyEvent& key) {
  if (key.Take(VK_RETURN)) BeginCellEdit();
}

void frmList::txtEditor_Keep() {
  std::string text(Trim(txtEditor.Text()));
  txtEditor.SetText(text);
  FlexGrid& grid = Grid();
  if (grid.Col() == kBoIdCol && CurrentListKind == kBoKind) {
    if (IsBoIdTooLong(text)) return TellBoIdTooLong();
    text = CompleteBoId(text);
  }
  grid.SetText(grid.Row(), grid.Col(), text);
  FitColumnWidth(grid, grid.Row(), grid.Col());
  cellEditor_.Close();
}

void frmList::btnAdd_Click() {
  AddEntryRow(Grid());
  BeginCellEdit();
}

void frmList::btnRemove_Click() { DeleteSelectedRows(Grid()); }

void frmList::btnReload_Click() {
  if (!Ask("Are you sure to reload the list?", "Reload Confirmation", MessageIcon::Question)) {
    return;
  }
  LoadFileIntoGrid(ListFilePath(CurrentListKind), Grid());
}

void frmList::btnSave_Click() { SaveList(); }

void frmList::btnSaveAsBackup_Click() {
  // The grid is checked although the backup is a copy of the file.
  if (HasBlankRow(Grid())) return;
  const std::string backup = BackupPathAt(CurrentListKind, ThePlatform().Now());
  if (!CopyTextFile(ListFilePath(CurrentListKind), backup)) return;
  Tell("Backup taken successfully.", "Backup succeeded.", MessageIcon::Information);
}

void frmList::btnLoadBackup_Click() {
  EnableControls(false);
  frameBackup.SetVisible(true);
  for (Control* control :
       std::initializer_list<Control*>{&frameBackup, &lstBackups, &btnLoad_Backup,
                                       &btnDelete_Backup, &btnCancel_Backup, &lblTitle_Backup}) {
    control->SetEnabled(true);
  }
  lblTitle_Backup.SetText(ListTextsOf(CurrentListKind).title);
  lstBackups.SetFocus();
  FillBackupList();
}

void frmList::btnUpdateList_Click() {
  if (CurrentListKind == kBoKind) {
    SendBoList(Grid(), *this);
  } else {
    ReceiveIsinList(*this, [this](const std::string& list) { ShowReceivedList(list); });
  }
}

// The clerk may have switched the list meanwhile, or the working folder.
void frmList::ShowReceivedList(const std::string& path) {
  if (CurrentListKind != kIsinKind || path != ListFilePath(kIsinKind)) return;
  cellEditor_.Close();  // its cell has other rows around it now
  LoadFileIntoGrid(path, Grid());
}

void frmList::btnClose_Click() { Unload(); }

void frmList::lstBackups_DblClick() { btnLoad_Backup_Click(); }

void frmList::btnLoad_Backup_Click() {
  const int index = lstBackups.ListIndex();
  if (index < 0) return;
  LoadFileIntoGrid(BackupEntryPath(CurrentListKind, lstBackups.ItemText(index)), Grid());
  btnCancel_Backup_Click();
}

void frmList::btnCancel_Backup_Click() {
  EnableControls(true);
  frameBackup.SetVisible(false);
  frameBackup.SetEnabled(false);
  lstBackups.SetEnabled(false);
  btnLoad_Backup.SetEnabled(false);
  btnCancel_Backup.SetEnabled(false);
  flxList.SetFocus();
}

void frmList::btnDelete_Backup_Click() {
  const int index = lstBackups.ListIndex();
  if (index < 0) return;
  const std::string entry = lstBackups.ItemText(index);
  if (IsMainFileEntry(CurrentListKind, entry)) {
    Tell("This is currently the main file. You cannot delete this.", "Deletion Failed",
         MessageIcon::Critical);
    return;
  }
  if (!Ask("Are you sure to delete the selected backup?", "Delete Confirmation",
           MessageIcon::Critical)) {
    return;
  }
  DeleteFileAt(BackupEntryPath(CurrentListKind, entry));
  Tell("Backup deleted successfully.", "Delete Succeeded", MessageIcon::Information);
  lstBackups.RemoveItem(index);
  lstBackups.SetListIndex(0);
}

void frmList::SetupListGrid() {
  const ListTexts texts = ListTextsOf(CurrentListKind);
  LayOutListGrid(Grid(), CurrentListKind);
  SetCaption(texts.caption);
  lblSelect.SetText(texts.selectCaption);
  flxList.SetToolTip(texts.gridToolTip);
  btnUpdateList.SetText(texts.updateCaption);
  btnUpdateList.SetToolTip(texts.updateToolTip);
}

void frmList::LoadList() {
  SetupListGrid();
  LoadFileIntoGrid(ListFilePath(CurrentListKind), Grid());
}

void frmList::SaveList() {
  if (HasBlankRow(Grid())) return;
  const std::string path = ListFilePath(CurrentListKind);
  SaveGridToFile(Grid(), path);
  Tell("Saved successfully.", "Saved.", MessageIcon::Information);
  if (CurrentListKind == kBoKind) {
    LoadBoList(path);
  } else {
    LoadIsinList(path);
  }
}

void frmList::BeginCellEdit() {
  cellEditor_.Open(txtEditor, Grid().Text(Grid().Row(), Grid().Col()));
}

void frmList::FillBackupList() {
  const std::vector<std::string> entries = BackupEntries(CurrentListKind);
  // With nothing to list, what was listed last stays.
  if (entries.empty()) return;
  lstBackups.SetItems(entries);
  lstBackups.SetListIndex(static_cast<int>(entries.size()) - 1);
}

std::string frmList::ChosenKind() const { return cmbListOf.ListIndex() == 0 ? kBoKind : kIsinKind; }

}  // namespace tallyrun
