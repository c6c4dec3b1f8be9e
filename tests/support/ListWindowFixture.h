// The real list window over small lists in a folder of its own: shown, clicked and typed into, with
// the recorded platform answering its boxes.
#pragma once

#include <string>

#include "lists/frmList.h"
#include "tests/support/FormDriver.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {

class ListWindowFixture : public ProgramFixture {
 protected:
  // Shows the list of BOs, on 6 May 2010 at 14:30:05.
  ListWindowFixture() {
    platform.now = {2010, 5, 6, 14, 30, 5, 0};
    folder.Write("BO.txt",
                 "S/N~BO ID~BO Name~Client Code\r\n1~1201950000000017~ANITA MEHROTRA~C001\r\n"
                 "2~1201950000000025~BIJAY ABC~C002\r\n3~1201950000000033~CHANDRA RAI~C003\r");
    folder.Write("ISIN.txt",
                 "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n"
                 "1~INE0AA101011~ALPHA CEMENTS~ALPHA~501\r");
    CurrentListKind = kBoKind;
    form.Show();
  }
  ~ListWindowFixture() override {
    form.Unload();
    testing::Pump();
  }

  template <class C = Control>
  C& On(int id) {
    return ControlOf<C>(form, id);
  }
  FlexGrid& Grid() { return On<FlexGridControl>(frmListIds::kFlxList).Grid(); }
  ListBox& Backups() { return On<ListBox>(frmListIds::kLstBackups); }
  Control& Editor() { return On(frmListIds::kTxtEditor); }
  std::string ClientCode() { return Grid().Text(1, 3); }

  void Choose(const std::string& kind) {
    On<ComboBox>(frmListIds::kCmbListOf).SetListIndex(kind == kBoKind ? 0 : 1);
  }
  void Click(int id) { ClickOn(On(id)); }
  // The boxes that a click brings, answered with Yes or No.
  std::vector<Message> BoxesOf(int button, MessageAnswer answer = MessageAnswer::Yes) {
    platform.messages.clear();
    platform.answers = {answer};
    Click(button);
    return platform.messages;
  }
  void Press(int id, int key) {
    On(id).SetFocus();
    PressKey(key);
  }
  // Opens the editor on the cell and types over it.
  void EditCell(int row, int col, const std::string& text) {
    Grid().SetRow(row);
    Grid().SetCol(col);
    Press(frmListIds::kFlxList, VK_RETURN);
    ASSERT_TRUE(Editor().HasFocus());
    Editor().SetText(text);
  }
  void Enter(int row, int col, const std::string& text) {
    EditCell(row, col, text);
    PressKey(VK_RETURN);
  }

  frmList form;
};

}  // namespace tallyrun::testing
