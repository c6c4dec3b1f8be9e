// The list window: edits one of the two master lists at a time, keeps its backups and exchanges
// it with KTX. Its handlers ask, call and tell; what they call knows no window.
#pragma once

#include <string>

#include "lists/frmListIds.h"
#include "ui/Button.h"
#include "ui/CellEditor.h"
#include "ui/FlexGridControl.h"
#include "ui/Form.h"
#include "ui/ListControls.h"
#include "ui/Panels.h"
#include "ui/TextBox.h"

namespace tallyrun {

class frmList : public Form {
 public:
  frmList();

  // Shows the list that CurrentListKind names. A window that is open already comes to the front
  // as it is, with its list and its edits, and CurrentListKind names that list again.
  void Show();

 protected:
  void CreateControls() override;
  void Layout(LayoutArea& area) override;
  void Form_Load() override;
  void Form_Resize() override;

 private:
  void CreateBackupFrame();
  void ConnectHandlers();
  void LayoutBackupFrame(LayoutArea& area, const PixelRect& grid);

  void Form_KeyUp(KeyEvent& key);
  void cmbListOf_Click();
  void txtItem_KeyDown(KeyEvent& key);
  void flxList_DblClick();
  void flxList_KeyPress(KeyEvent& key);
  void txtEditor_Keep();
  void btnAdd_Click();
  void btnRemove_Click();
  void btnReload_Click();
  void btnSave_Click();
  void btnSaveAsBackup_Click();
  void btnLoadBackup_Click();
  void btnUpdateList_Click();
  void btnClose_Click();
  void lstBackups_DblClick();
  void btnLoad_Backup_Click();
  void btnCancel_Backup_Click();
  void btnDelete_Backup_Click();

  void SetupListGrid();
  void LoadList();
  void ShowReceivedList(const std::string& path);
  void SaveList();
  void BeginCellEdit();
  void FillBackupList();

  FlexGrid& Grid() { return flxList.Grid(); }
  // The kind that the chooser stands on.
  std::string ChosenKind() const;

  ComboBox cmbListOf;
  Label lblSelect;
  TextBox txtItem;
  TextBox txtEditor;
  FlexGridControl flxList;
  Button btnAdd;
  Button btnRemove;
  Button btnReload;
  Button btnSave;
  Button btnSaveAsBackup;
  Button btnLoadBackup;
  Button btnUpdateList;
  Button btnClose;
  Frame frameBackup;
  Label lblTitle_Backup;
  ListBox lstBackups;
  Button btnLoad_Backup;
  Button btnCancel_Backup;
  Button btnDelete_Backup;

  CellEditor cellEditor_{flxList};
};

}  // namespace tallyrun
