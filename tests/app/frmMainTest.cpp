// The entry sheet in its real window: clicked, typed into and told to move the focus.
#include <gmock/gmock.h>

#include "app/frmMain.h"
#include "core/modFileIO.h"
#include "tests/support/GridText.h"
#include "tests/support/MainWindowFixture.h"
#include "ui/MessageLoop.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;
using ::testing::ElementsAre;
using ::testing::StartsWith;

class frmMainTest : public MainWindowFixture {};

const Message kLoseRows = {"Unsaved data will be lost.\r\nAre you sure to continue?",
                           "Confirm Loading", MessageIcon::Question, MessageButtons::YesNo};
constexpr char kTrades[] =
    "0|BRAVOB|2|S|100|5|C2|7|8|9|03-01-2010\r\n0|ALPHAM|2|S|50|5|C1|7|8|9|03-01-2010\r\n"
    "0|ALPHAM|2|S|25|5|C1|7|8|9|03-01-2010\r\n0|ALPHAM|2|B|7|5|C3|7|8|9|03-01-2010\r\n";

TEST_F(frmMainTest, TheModeShowsInEverythingThatDependsOnIt) {
  EXPECT_EQ(RowsOf(Sheet()), std::vector<std::string>{"1||||||||||||"});
  EXPECT_EQ(PickedDay(), (Date{2010, 1, 6}));
  for (const bool payOut : {false, true}) {
    if (payOut) Click(kOptPayOut);
    const std::string name = payOut ? "Pay Out" : "Pay In";
    EXPECT_EQ(EntryMode, payOut ? kPayOut : kPayIn);
    EXPECT_EQ(window.Caption(), "Tallyrun v1.0 : " + name);
    EXPECT_THAT(Control::FromHandle(Item(kFlxEntries))->ToolTip(),
                StartsWith(name + " entries. Press INSERT key"));
    EXPECT_EQ(TopOf(kDtpPayInOrPayOut), TopOf(payOut ? kOptPayOut : kOptPayIn));
    EXPECT_EQ(TextOf(kBtnLoadFromBTFile), payOut ? "Load Payout" : "Load Payin");
    EXPECT_EQ(Enabled(kBtnCheck), !payOut);
  }
  EXPECT_TRUE(platform.messages.empty());  // an empty sheet switches without a question
}

TEST_F(frmMainTest, ADeclinedSwitchKeepsEverythingAndSkipsOneLoad) {
  const std::string path = folder.Write("payin_05-01-2010.txt", kTrades);
  FillRows(Sheet(), {"1", "2"});
  Click(kOptPayOut);
  EXPECT_EQ(platform.TakeMessage(), kLoseRows);
  EXPECT_EQ(EntryMode, kPayIn);
  EXPECT_EQ(GetFocus(), Item(kOptPayIn));
  EXPECT_EQ(SendMessageA(Item(kOptPayIn), BM_GETCHECK, 0, 0), BST_CHECKED);

  platform.files = {path, path};
  Click(kBtnLoadFromBTFile);
  EXPECT_EQ(PickedDay(), (Date{2010, 1, 5}));  // set before the switch is asked
  EXPECT_EQ(Sheet().Rows(), 3);
  EXPECT_TRUE(platform.messages.empty());
  platform.answers = {MessageAnswer::Yes, MessageAnswer::Yes};
  Click(kBtnLoadFromBTFile);
  EXPECT_EQ(platform.TakeMessage(), kLoseRows);
  EXPECT_EQ(Sheet().Rows(), 4);

  Click(kOptPayOut);
  EXPECT_EQ(EntryMode, kPayOut);
  EXPECT_EQ(RowsOf(Sheet()), std::vector<std::string>{"1||||||||||||"});
}

TEST_F(frmMainTest, InsertAndDeleteActOncePerReleaseWhereverTheFocusIs) {
  for (const int id : {kFlxEntries, kOptPayIn, kBtnSave, kChkFreeEntry, kTxtSearch, kCmbSearch,
                       kDtpPayInOrPayOut, kBtnExit}) {
    SCOPED_TRACE(id);
    FillRows(Sheet(), {"1|x"});
    SetFocus(Item(id));
    Release(id, VK_INSERT);
    EXPECT_EQ(Sheet().Rows(), 3);
    EXPECT_EQ(Sheet().Col(), EntryColumn::kTradeDate);
    EXPECT_EQ(Shown(kDtpDate), id != kBtnExit);
    if (id != kBtnExit) Type(kDtpDate, 27);
    EXPECT_FALSE(Shown(kDtpDate));

    Sheet().SetRow(2);
    platform.answers = {MessageAnswer::Yes};
    Release(id, VK_DELETE);
    const bool editsText = id == kTxtSearch || id == kDtpPayInOrPayOut;
    EXPECT_EQ(platform.messages.size(), editsText ? 0u : 1u);
    EXPECT_EQ(Sheet().Rows(), editsText ? 3 : 2);
    platform.messages.clear();
  }
}

TEST_F(frmMainTest, TheEditorCoversItsCellCompletesAndComesBackToTheGrid) {
  FillRows(Sheet(), {"1", "2"});
  EditText(1, EntryColumn::kBoId, "2");
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kBoName), "BEN BIRCH");
  EXPECT_FALSE(Shown(kTxtEditor));
  EXPECT_EQ(GetFocus(), Item(kFlxEntries));

  Edit(2, EntryColumn::kBoId);
  auto* const flxEntries = static_cast<FlexGridControl*>(Control::FromHandle(Item(kFlxEntries)));
  EXPECT_EQ(Control::FromHandle(Item(kTxtEditor))->Bounds(),
            flxEntries->CellBoundsInParent(2, EntryColumn::kBoId));
  EXPECT_EQ(TextOf(kTxtEditor), "1201950000000002");  // offered from the row above
  EXPECT_EQ(SendMessageA(Item(kTxtEditor), EM_GETSEL, 0, 0), MAKELONG(0, 16));
  Type(kTxtEditor, 27);
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kBoId), "");
  EXPECT_EQ(GetFocus(), Item(kFlxEntries));

  platform.onMessage = [&](const Message&) { EXPECT_TRUE(Shown(kTxtEditor)); };
  EditText(2, EntryColumn::kBoId, "12345678901234567");
  EXPECT_EQ(platform.TakeMessage().text, "BOID length can not be greater than 16.");
  EXPECT_TRUE(Shown(kTxtEditor));
  EXPECT_EQ(TextOf(kTxtEditor), "12345678901234567");
}

TEST_F(frmMainTest, WhatTakesTheFocusOrMovesTheCellDropsTheEdit) {
  int width = 1200;
  const std::vector<std::pair<const char*, std::function<void()>>> ways = {
      {"another control", [&] { SetFocus(Item(kBtnSave)); }},
      {"the grid", [&] { SetFocus(Item(kFlxEntries)); }},
      {"scrolling", [&] { SendMessageA(Item(kFlxEntries), WM_VSCROLL, SB_PAGEDOWN, 0); }},
      {"resizing",
       [&] {
         SetWindowPos(window.Handle(), nullptr, 0, 0, width -= 20, 500, SWP_NOMOVE | SWP_NOZORDER);
       }},
  };
  FillRows(Sheet(), std::vector<std::string>(200));
  for (const auto& [name, drop] : ways) {
    SCOPED_TRACE(name);
    for (const int col : {EntryColumn::kScripId, EntryColumn::kTradeDate}) {
      Sheet().SetTopRow(1);
      Edit(1, col);
      ASSERT_TRUE(Shown(kTxtEditor) || Shown(kDtpDate));
      SetWindowTextA(Item(kTxtEditor), "typed");
      drop();
      Pump();
      EXPECT_FALSE(Shown(kTxtEditor) || Shown(kDtpDate));
      EXPECT_EQ(Sheet().Text(1, col), "");
    }
  }
  Sheet().SetTopRow(100);
  const int top = Sheet().TopRow();
  EditText(top + 2, EntryColumn::kQuantity, "5");
  EXPECT_EQ(Sheet().TopRow(), top);  // keeping an edit does not scroll
}

TEST_F(frmMainTest, ThePickerStartsWithTheCellAboveAndWritesEveryChange) {
  FillRows(Sheet(), {EntryCells({{EntryColumn::kTradeDate, "03-Jan-2010"}}), "2"});
  Edit(2, EntryColumn::kTradeDate);
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kTradeDate), "");
  PickDay(kDtpDate, {2010, 3, 9});
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kTradeDate), "09-Mar-2010");
  EXPECT_TRUE(Shown(kDtpDate));
  Edit(1, EntryColumn::kTradeDate);
  Type(kDtpDate, '\r');
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kTradeDate), "03-Jan-2010");
  EXPECT_EQ(GetFocus(), Item(kFlxEntries));
}

TEST_F(frmMainTest, ADayFromTradeFileToSavedFileAndBack) {
  platform.files = {folder.Write("payin_05-01-2010.txt", kTrades)};
  Click(kBtnLoadFromBTFile);
  EXPECT_THAT(ColumnOf(Sheet(), EntryColumn::kQuantity), ElementsAre("50", "25", "100"));
  Click(kBtnAutoFields);
  platform.answers = {MessageAnswer::Yes, MessageAnswer::Yes, MessageAnswer::Yes};
  Click(kBtnSummarize);
  std::vector<std::string> rows = {
      "1|123456|1201950000009999|03-Jan-2010|05-Jan-2010|C1|1201950000000001|ANN ALDER|ALPHAM|"
      "KX0001000011|ALPHA MILLS LTD|75|I1234560301101",
      "2|123456|1201950000009999|03-Jan-2010|05-Jan-2010|C2|1201950000000002|BEN BIRCH|BRAVOB|"
      "KX0002000029|BRAVO BANK LTD|100|I1234560301102"};
  EXPECT_EQ(RowsOf(Sheet()), rows);
  Click(kBtnSave);
  FillRows(Sheet(), {"1|lost"});
  Click(kBtnReload);
  rows.back() += "\r";  // the file's closing carriage return
  EXPECT_EQ(RowsOf(Sheet()), rows);
  const auto question = [](const char* text, const char* title) {
    return Message{text, title, MessageIcon::Question, MessageButtons::YesNo};
  };
  EXPECT_THAT(
      platform.messages,
      ElementsAre(
          question("Are you sure to summarize individual BOs ISIN quantities?",
                   "Confirm Summarize"),
          question("Are you sure to save the Pay In file of 05-Jan-2010 ?", "Save Confirmation"),
          Message{"Pay In file of 05-Jan-2010 saved successfully.", "File Saved.",
                  MessageIcon::Information},
          question("Are you sure to load the Pay In file of 05-Jan-2010 ?", "Load Confirmation")));
}

TEST_F(frmMainTest, BadFilesGetTheirMessageAndTheRowsStay) {
  FillRows(Sheet(), {"1|kept"});
  platform.files = {std::nullopt, "C:\\trades_05-01-2010.txt", "C:\\payin_never.txt"};
  for (int file = 0; file < 3; ++file) Click(kBtnLoadFromBTFile);
  Settings.backupLocation = folder.Path() + "missing\\";
  platform.answers = {MessageAnswer::Yes};
  Click(kBtnSave);
  platform.messages.erase(platform.messages.end() - 2);
  EXPECT_THAT(platform.messages, ElementsAre(Message{"Unknown file name format.", "Invalid File",
                                                     MessageIcon::Critical},
                                             Message{"Type mismatch"}, Message{"Path not found"}));
  EXPECT_EQ(Sheet().Text(1, 1), "kept");
}

TEST_F(frmMainTest, SearchGoesToTheFoundRow) {
  FillRows(Sheet(), {EntryCells({{EntryColumn::kBoName, "ABC LTD"}}), "2", "3"});
  SendMessageA(Item(kCmbSearch), CB_SETCURSEL, 2, 0);
  SetWindowTextA(Item(kTxtSearch), " abc ");
  Sheet().SetRow(3);
  Click(kBtnSearch);
  EXPECT_EQ(Sheet().Row(), 1);
  EXPECT_EQ(Sheet().Col(), 0);
  Click(kBtnSearch);
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"No such record found.", "Record not found.", MessageIcon::Critical}));
}

TEST_F(frmMainTest, ClosingTheWindowClosesTheListToo) {
  Click(kBtnList);
  EXPECT_EQ(Form::LoadedForms().size(), 2u);
  Click(kBtnExit);
  RunMessageLoop();
  EXPECT_TRUE(Form::LoadedForms().empty());
}

}  // namespace
}  // namespace tallyrun::testing
