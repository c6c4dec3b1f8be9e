// The real main window over the entry sheet's fixture: shown, clicked and typed into by messages
// as Windows sends them, with the recorded platform answering its boxes.
#pragma once

#include <windows.h>

#include <string>

#include "app/frmMain.h"
#include "app/frmMainIds.h"
#include "core/Conversion.h"
#include "tests/support/EntrySheetFixture.h"

namespace tallyrun::testing {

class MainWindowFixture : public EntrySheetFixture {
 protected:
  // The working folder is `folder`; the grid has the focus.
  MainWindowFixture();
  ~MainWindowFixture() override { window.Unload(); }

  // Handles what is waiting, also when the window was just closed.
  static void Pump();
  HWND Item(int id);
  FlexGrid& Sheet();
  void Click(int id);
  // A key's release, and a typed character.
  void Release(int id, int key);
  void Type(int id, char character);
  // Opens the editor on the cell with Enter; EditText types over what it holds and keeps it.
  void Edit(int row, int col);
  void EditText(int row, int col, const std::string& text);
  bool Shown(int id);
  bool Enabled(int id);
  int TopOf(int id);
  std::string TextOf(int id);
  Date PickedDay();
  // As a clerk picks a date in the picker's calendar.
  void PickDay(int id, const Date& date);

  frmMain window;
};

}  // namespace tallyrun::testing
