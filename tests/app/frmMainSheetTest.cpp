// What the main window's buttons, menu and double click do to the rows of the sheet.
#include <gmock/gmock.h>

#include "tests/support/GridText.h"
#include "tests/support/MainWindowFixture.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;
using ::testing::ElementsAre;
using ::testing::FieldsAre;

Message Question(const std::string& text, const std::string& title) {
  return {text, title, MessageIcon::Question, MessageButtons::YesNo};
}

class frmMainSheetTest : public MainWindowFixture {
 protected:
  enum MenuItemNumber { kCopy = 1, kPaste, kDelete };

  void Mouse(UINT message, int row, int col) {
    MouseOnCell(On<FlexGridControl>(kFlxEntries), message, row, col);
  }

  // Clicks the cell with the right button, goes down to the item of the menu and takes it.
  void ChooseFromMenu(int row, int col, MenuItemNumber item) {
    bool chosen = false;
    const Meanwhile choose([&] {
      const HWND menu = FindWindowA("#32768", nullptr);
      if (menu == nullptr || !IsWindowVisible(menu)) return false;
      for (int steps = item; steps > 0; --steps) {
        PostMessageA(window.Handle(), WM_KEYDOWN, VK_DOWN, 0);
      }
      PostMessageA(window.Handle(), WM_KEYDOWN, VK_RETURN, 0);
      return chosen = true;
    });
    Mouse(WM_RBUTTONDOWN, row, col);
    Mouse(WM_RBUTTONUP, row, col);
    EXPECT_TRUE(chosen);
  }

  static std::string Row(const std::string& boId, const std::string& quantity,
                         const std::string& reference = "old") {
    return "|||03-Jan-2010|||" + boId + "|||X||" + quantity + "|" + reference;
  }
  // The rows without their serial numbers.
  std::vector<std::string> Rows() {
    std::vector<std::string> rows = RowsOf(Sheet());
    for (std::string& row : rows) row.erase(0, row.find('|'));
    return rows;
  }
};

TEST_F(frmMainSheetTest, SummarizeAsksSortsMergesAndNumbersAnew) {
  const Message question =
      Question("Are you sure to summarize individual BOs ISIN quantities?", "Confirm Summarize");
  const std::vector<std::string> rows = {Row("B", "5"), Row("A", "1"), Row("B", "7")};
  FillRows(Sheet(), rows);
  Click(kBtnSummarize);  // declined
  EXPECT_EQ(platform.TakeMessage(), question);
  EXPECT_EQ(Rows(), rows);
  platform.answers = {MessageAnswer::Yes, MessageAnswer::Yes};
  Click(kBtnSummarize);
  EXPECT_EQ(platform.TakeMessage(), question);
  EXPECT_THAT(Rows(),
              ElementsAre(Row("A", "1", "I1234560301101"), Row("B", "12", "I1234560301102")));
  // Where it ends with an error the reference numbers stay as they are.
  FillRows(Sheet(), {Row("B", "many"), Row("A", "1"), Row("B", "7")});
  Click(kBtnSummarize);
  EXPECT_THAT(platform.messages, ElementsAre(question, Message{"Type mismatch"}));
  EXPECT_THAT(Rows(), ElementsAre(Row("A", "1"), Row("B", "7"), Row("B", "many")));
}

TEST_F(frmMainSheetTest, AnImportAndAutoFillLeaveTheRowsSorted) {
  platform.files = {folder.Write("PayOut_05-01-2010.TXT",
                                 "0|BRAVOB|2|B|5|5|C2|7|8|9|03-01-2010\r\n"
                                 "0|ALPHAM|2|S|7|5|C2|7|8|9|03-01-2010\r\n"
                                 "0|ALPHAM|2|B|6|5|C1|7|8|9|03-01-2010")};
  Click(kBtnLoadFromBTFile);
  EXPECT_THAT(platform.fileRequests,
              ElementsAre(FieldsAre("Choose Text FIle",
                                    ElementsAre(FieldsAre("Text files (*.TXT)", "*.TXT"),
                                                FieldsAre("All Files (*.*)", "*.*")))));
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(EntryMode, kPayOut);
  EXPECT_THAT(ColumnOf(Sheet(), EntryColumn::kQuantity), ElementsAre("6", "5"));
  EXPECT_THAT(ColumnOf(Sheet(), EntryColumn::kSerial), ElementsAre("1", "2"));

  FillRows(Sheet(), {"1|||03-Jan-2010||C2", "2|||03-Jan-2010||C1"});
  Click(kBtnAutoFields);
  EXPECT_THAT(ColumnOf(Sheet(), EntryColumn::kBoName), ElementsAre("ANN ALDER", "BEN BIRCH"));
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kDeliveryDate), "05-Jan-2010");
}

TEST_F(frmMainSheetTest, SaveAndReloadNameTheDaysFileAndADeclinedSwitchSkipsOneReload) {
  const Message save =
      Question("Are you sure to save the Pay In file of 06-Jan-2010 ?", "Save Confirmation");
  FillRows(Sheet(), {Row("A", "saved")});
  Click(kBtnSave);
  EXPECT_EQ(platform.TakeMessage(), save);
  EXPECT_EQ(folder.EntryCount(), 0);
  platform.answers = {MessageAnswer::Yes};
  Click(kBtnSave);
  EXPECT_THAT(platform.messages,
              ElementsAre(save, Message{"Pay In file of 06-Jan-2010 saved successfully.",
                                        "File Saved.", MessageIcon::Information}));
  EXPECT_TRUE(folder.Has("06-Jan-2010_PI_123456.txt"));
  FillRows(Sheet(), {Row("A", "edited"), Row("B", "2")});
  Click(kOptPayOut);  // declined
  for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes, MessageAnswer::Yes}) {
    EXPECT_THAT(Rows(), ElementsAre(Row("A", "edited"), Row("B", "2")));
    platform.messages.clear();
    platform.answers = {answer};
    Click(kBtnReload);
    EXPECT_EQ(
        platform.TakeMessage(),
        Question("Are you sure to load the Pay In file of 06-Jan-2010 ?", "Load Confirmation"));
  }
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kQuantity), "saved");
}

TEST_F(frmMainSheetTest, TheMenuCopiesPastesAndDeletes) {
  const std::string account = "|||||C1|id|name|||||";
  FillRows(Sheet(), {"1" + account, "2", "3", "4"});
  ChooseFromMenu(4, EntryColumn::kBoId, kPaste);  // nothing was copied yet
  ChooseFromMenu(1, EntryColumn::kQuantity, kCopy);
  Sheet().SetRow(2);
  Sheet().SetCol(EntryColumn::kBoId);
  Sheet().SetRowSel(3);
  ChooseFromMenu(3, EntryColumn::kBoId, kPaste);  // a click on the block leaves it selected
  EXPECT_THAT(RowsOf(Sheet()),
              ElementsAre("1" + account, "2" + account, "3" + account, "4||||||||||||"));
  ChooseFromMenu(1, EntryColumn::kClientCode, kDelete);
  EXPECT_EQ(platform.TakeMessage().title, "Delete Confirmation");
  platform.answers = {MessageAnswer::Yes};
  ChooseFromMenu(1, EntryColumn::kClientCode, kDelete);
  EXPECT_THAT(RowsOf(Sheet()), ElementsAre("1" + account, "2" + account, "3||||||||||||"));
}

TEST_F(frmMainSheetTest, EnterAndDoubleClickOpenTheCellsThatFreeEntryAllows) {
  const struct {
    bool doubleClick;
    const char* editable;  // one mark for each column, 0 to 12
  } cases[] = {{false, "--xxxxx-xx-x-"},
               {true, "---xxxx-xx-x-"},
               {false, "xxxxxxxxxxxxx"},  // from here on with Free Entry
               {true, "---xxxxxxxxx-"}};
  Edit(1, EntryColumn::kClientCode);  // the editors are made with the first edit
  for (const auto& each : cases) {
    if (&each == cases + 2) Click(kChkFreeEntry);
    std::string opened;
    for (int col = 0; col < EntryColumn::kCount; ++col) {
      On(kFlxEntries).SetFocus();
      each.doubleClick ? Mouse(WM_LBUTTONDBLCLK, 1, col) : Edit(1, col);
      opened += IsEditing() ? 'x' : '-';
    }
    EXPECT_EQ(opened, each.editable);
  }
  EditText(1, EntryColumn::kClientCode, "C1");
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kBoName), "");
  Click(kChkFreeEntry);
  EditText(1, EntryColumn::kClientCode, "C2");
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kBoName), "BEN BIRCH");
}

}  // namespace
}  // namespace tallyrun::testing
