// The main window: the entry sheet of one mode and day, and the buttons that start everything
// else. Its handlers ask, call and tell; what they call knows no window.
#pragma once

#include <optional>
#include <string>

#include "app/frmMainIds.h"
#include "core/entry/EntryRow.h"
#include "holding/CheckHoldings.h"
#include "holding/frmHoldingMessage.h"
#include "lists/frmList.h"
#include "settings/frmSettings.h"
#include "ui/Button.h"
#include "ui/CellEditor.h"
#include "ui/DatePicker.h"
#include "ui/FlexGridControl.h"
#include "ui/Form.h"
#include "ui/ListControls.h"
#include "ui/Panels.h"
#include "ui/PopupMenu.h"
#include "ui/TextBox.h"

namespace tallyrun {

class frmMain : public Form {
 public:
  frmMain();

  // Shows the settings dialog until it is closed, also while this window is not shown yet.
  void ShowSettings();

 protected:
  void CreateControls() override;
  void Layout(LayoutArea& area) override;
  void Form_Load() override;
  void Form_Unload() override;
  void Form_Resize() override;

 private:
  void ConnectHandlers();

  void SetupEntryGrid();
  void Form_KeyUp(KeyEvent& key);

  void optPayIn_Click();
  void optPayOut_Click();
  void btnLoadFromBTFile_Click();
  void btnReload_Click();
  void btnSave_Click();
  void btnSearch_Click();

  void flxEntries_KeyPress(KeyEvent& key);
  void flxEntries_DblClick();
  void flxEntries_RightClick(POINT at);
  void cellEditor_Keep();
  void dtpDate_Change();
  void mnuCopy_Click();
  void mnuPaste_Click();
  void mnuDelete_Click();

  void btnAutoFields_Click();
  void btnSummarize_Click();
  void btnCheck_Click();
  void btnReport_Click();
  void btnSend_Click();
  void btnList_Click();
  void btnSettings_Click();
  void btnExit_Click();
  void btnExit_KeyUp(KeyEvent& key);

  // Takes over the mode of the clicked option, or puts `other` back when the clerk would rather
  // keep the rows.
  void SwitchMode(const EntryModeTexts& mode, OptionButton& other);
  // True once after a declined switch: what was to be loaded is not.
  bool TakeSkipNextLoad();

  HoldingCheck HoldingCheckHere();

  void AddRowAtTradeDate();
  void ShowCellEditor();

  FlexGrid& Grid() { return flxEntries.Grid(); }
  Date PickedDay() const;
  // "Pay In file of 05-Jan-2010", as every message about the day's file says it.
  std::string DayFileText() const;

  OptionButton optPayIn;
  OptionButton optPayOut;
  DatePicker dtpPayInOrPayOut;
  Button btnLoadFromBTFile;
  Button btnReload;
  Button btnSave;
  Label lblSearch;
  ComboBox cmbSearch;
  TextBox txtSearch;
  Button btnSearch;
  CheckBox chkFreeEntry;
  TextBox txtEditor;
  DatePicker dtpDate;
  FlexGridControl flxEntries;
  Button btnAutoFields;
  Button btnSummarize;
  Button btnCheck;
  Button btnReport;
  Button btnSend;
  Button btnList;
  Button btnSettings;
  Button btnExit;
  PopupMenu mnuCopyCell;
  MenuItem mnuCopy;
  MenuItem mnuPaste;
  MenuItem mnuDelete;

  CellEditor cellEditor_{flxEntries};
  frmList listWindow_;
  frmHoldingMessage holdingWindow_;
  frmSettings settingsWindow_;
  bool SkipNextLoad = false;    // set when the clerk declined a change of mode
  std::optional<int> copyRow_;  // the row last copied from
};

}  // namespace tallyrun
