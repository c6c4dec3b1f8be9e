// The real main window over the entry sheet's fixture: shown, clicked and typed into, with the
// recorded platform answering its boxes.
#pragma once

#include <string>

#include "app/frmMain.h"
#include "app/frmMainIds.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/FormDriver.h"

namespace tallyrun::testing {

class MainWindowFixture : public EntrySheetFixture {
 protected:
  // The working folder is `folder`; the grid has the focus.
  MainWindowFixture() {
    EntryMode = {};
    window.Show();
    Pump();
    On(frmMainIds::kFlxEntries).SetFocus();
  }
  ~MainWindowFixture() override { window.Unload(); }

  template <class C = Control>
  C& On(int id) {
    return ControlOf<C>(window, id);
  }
  HWND Item(int id) { return On(id).Handle(); }
  FlexGrid& Sheet() { return On<FlexGridControl>(frmMainIds::kFlxEntries).Grid(); }
  static void Pump() { testing::Pump(); }
  void Click(int id) { ClickOn(On(id)); }
  // Opens the editor on the cell with Enter; EditText types over what it holds and keeps it.
  void Edit(int row, int col) {
    On(frmMainIds::kFlxEntries).SetFocus();
    Sheet().SetRow(row);
    Sheet().SetCol(col);
    PressKey(VK_RETURN);
  }
  void EditText(int row, int col, const std::string& text) {
    Edit(row, col);
    ASSERT_TRUE(On(frmMainIds::kTxtEditor).HasFocus());
    On(frmMainIds::kTxtEditor).SetText(text);
    PressKey(VK_RETURN);
  }
  bool IsEditing() {
    return On(frmMainIds::kTxtEditor).Visible() || On(frmMainIds::kDtpDate).Visible();
  }
  std::optional<Date> PickedDay() { return On<DatePicker>(frmMainIds::kDtpPayInOrPayOut).Value(); }

  frmMain window;
};

}  // namespace tallyrun::testing
