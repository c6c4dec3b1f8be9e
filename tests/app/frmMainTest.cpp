// The entry sheet in its real window: clicked, typed into and told to move the focus.
#include <gmock/gmock.h>

#include "app/frmMain.h"
#include "core/modFileIO.h"
#include "tests/support/GridText.h"
#include "tests/support/MainWindowFixture.h"
#include "ui/MessageLoop.h"

namespace tallyrun {
namespace {

using namespace frmMainIds;
using testing::ColumnOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using testing::EntryCells;
using testing::FillRows;
using testing::RowsOf;
using ::testing::StartsWith;

constexpr char kTrades[] =
    "0|BRAVOB|2|S|100|5|C2|7|8|9|03-01-2010\r\n"
    "0|ALPHAM|2|S|50|5|C1|7|8|9|03-01-2010\r\n"
    "0|ALPHAM|2|S|25|5|C1|7|8|9|03-01-2010\r\n"
    "0|ALPHAM|2|B|7|5|C3|7|8|9|03-01-2010\r\n";

class frmMainTest : public testing::MainWindowFixture {};

const Message kLoseRows = {"Unsaved data will be lost.\r\nAre you sure to continue?",
                           "Confirm Loading", MessageIcon::Question, MessageButtons::YesNo};

TEST_F(frmMainTest, StartsWithAnEmptyPayInSheetOfToday) {
  EXPECT_EQ(window.Caption(), "Tallyrun v1.0 : Pay In");
  EXPECT_EQ(EntryMode, kPayIn);
  EXPECT_EQ(RowsOf(Sheet()), std::vector<std::string>{"1||||||||||||"});
  EXPECT_EQ(Sheet().Text(0, 12), "Internal Ref. No.");
  EXPECT_EQ(TextOf(kBtnLoadFromBTFile), "Load Payin");
  EXPECT_TRUE(Enabled(kBtnCheck));
  EXPECT_EQ(PickedDay(), (Date{2010, 1, 6}));
  EXPECT_EQ(TopOf(kDtpPayInOrPayOut), TopOf(kOptPayIn));
  EXPECT_EQ(TextOf(kCmbSearch), "Client Code");
}

TEST_F(frmMainTest, AnEmptySheetSwitchesWithoutAQuestion) {
  Click(kOptPayOut);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(EntryMode, kPayOut);
  EXPECT_EQ(window.Caption(), "Tallyrun v1.0 : Pay Out");
  EXPECT_EQ(TextOf(kBtnLoadFromBTFile), "Load Payout");
  EXPECT_FALSE(Enabled(kBtnCheck));
  EXPECT_EQ(TopOf(kDtpPayInOrPayOut), TopOf(kOptPayOut));
  EXPECT_THAT(Control::FromHandle(Item(kFlxEntries))->ToolTip(), StartsWith("Pay Out entries. "));
}

TEST_F(frmMainTest, ADeclinedSwitchKeepsEverythingAndSkipsOneLoad) {
  const std::string path = Write("payin_05-01-2010.txt", kTrades);
  FillRows(Sheet(), {"1", "2"});
  Click(kOptPayOut);
  EXPECT_EQ(platform.TakeMessage(), kLoseRows);
  EXPECT_EQ(EntryMode, kPayIn);
  EXPECT_EQ(GetFocus(), Item(kOptPayIn));
  EXPECT_EQ(SendMessageA(Item(kOptPayIn), BM_GETCHECK, 0, 0), BST_CHECKED);
  EXPECT_EQ(Sheet().Rows(), 3);

  platform.files = {path, path};
  Click(kBtnLoadFromBTFile);
  EXPECT_EQ(PickedDay(), (Date{2010, 1, 5}));  // set before the switch is asked
  EXPECT_EQ(Sheet().Rows(), 3);
  EXPECT_TRUE(platform.messages.empty());
  platform.answers = {MessageAnswer::Yes};
  Click(kBtnLoadFromBTFile);
  EXPECT_EQ(platform.TakeMessage(), kLoseRows);
  EXPECT_EQ(Sheet().Rows(), 4);
}

TEST_F(frmMainTest, AnAcceptedSwitchClearsTheSheet) {
  FillRows(Sheet(), {"1|x", "2"});
  platform.answers = {MessageAnswer::Yes};
  Click(kOptPayOut);
  EXPECT_EQ(EntryMode, kPayOut);
  EXPECT_EQ(RowsOf(Sheet()), std::vector<std::string>{"1||||||||||||"});
}

TEST_F(frmMainTest, InsertAndDeleteActOncePerReleaseWhereverTheFocusIs) {
  for (const int id : {kFlxEntries, kOptPayIn, kBtnAutoFields, kBtnSave, kBtnSearch, kChkFreeEntry,
                       kTxtSearch, kCmbSearch, kDtpPayInOrPayOut}) {
    SCOPED_TRACE(id);
    FillRows(Sheet(), {"1|x"});
    SetFocus(Item(id));
    Release(id, VK_INSERT);
    EXPECT_EQ(Sheet().Rows(), 3);
    EXPECT_EQ(Sheet().Col(), EntryColumn::kTradeDate);
    EXPECT_EQ(GetFocus(), Item(kDtpDate));
    Type(kDtpDate, 27);
    EXPECT_FALSE(Shown(kDtpDate));
  }
  FillRows(Sheet(), {"1|x"});
  SetFocus(Item(kBtnExit));
  Release(kBtnExit, VK_INSERT);
  EXPECT_EQ(Sheet().Rows(), 3);
  EXPECT_EQ(Sheet().Col(), EntryColumn::kTradeDate);
  EXPECT_FALSE(Shown(kDtpDate));

  for (const int id : {kFlxEntries, kBtnExit, kBtnSave, kOptPayOut}) {
    FillRows(Sheet(), {"1|x", "2|y"});
    Sheet().SetRow(2);
    platform.answers = {MessageAnswer::Yes};
    Release(id, VK_DELETE);
    EXPECT_EQ(platform.TakeMessage().title, "Delete Confirmation");
    EXPECT_EQ(Sheet().Rows(), 2);
  }
  for (const int id : {kTxtSearch, kDtpPayInOrPayOut}) {
    Release(id, VK_DELETE);
    EXPECT_TRUE(platform.messages.empty());
  }
}

TEST_F(frmMainTest, TypedCellsAreCompletedAndLookedUp) {
  FillRows(Sheet(), {"1", "2"});
  EditText(1, EntryColumn::kBoId, "2");
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kBoId), "1201950000000002");
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kBoName), "BEN BIRCH");
  EXPECT_FALSE(Shown(kTxtEditor));
  EXPECT_EQ(GetFocus(), Item(kFlxEntries));
  EXPECT_EQ(Sheet().Row(), 1);
  EXPECT_EQ(Sheet().Col(), EntryColumn::kBoId);

  Edit(2, EntryColumn::kBoId);
  EXPECT_EQ(TextOf(kTxtEditor), "1201950000000002");
  DWORD start = 1;
  DWORD end = 0;
  SendMessageA(Item(kTxtEditor), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
               reinterpret_cast<LPARAM>(&end));
  EXPECT_EQ(start, 0u);
  EXPECT_EQ(end, 16u);
  Type(kTxtEditor, 27);
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kBoId), "");
  EXPECT_EQ(GetFocus(), Item(kFlxEntries));
}

TEST_F(frmMainTest, TheEditorCoversItsCell) {
  Edit(1, EntryColumn::kQuantity);
  auto* const flxEntries = static_cast<FlexGridControl*>(Control::FromHandle(Item(kFlxEntries)));
  EXPECT_EQ(Control::FromHandle(Item(kTxtEditor))->Bounds(),
            flxEntries->CellBoundsInParent(1, EntryColumn::kQuantity));
}

TEST_F(frmMainTest, ARefusedTextStaysInTheEditorUnderItsMessage) {
  platform.onMessage = [&](const Message&) { EXPECT_TRUE(Shown(kTxtEditor)); };
  EditText(1, EntryColumn::kBoId, "12345678901234567");
  EXPECT_EQ(platform.TakeMessage().text, "BOID length can not be greater than 16.");
  EXPECT_TRUE(Shown(kTxtEditor));
  EXPECT_EQ(TextOf(kTxtEditor), "12345678901234567");
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kBoId), "");
}

TEST_F(frmMainTest, WhatTakesTheFocusOrMovesTheCellDropsTheEdit) {
  const auto isDropped = [&] {
    const bool dropped = !Shown(kTxtEditor) && !Shown(kDtpDate);
    return dropped && Sheet().Text(1, EntryColumn::kScripId).empty();
  };
  std::vector<std::string> rows(200);
  rows[0] = "1";
  FillRows(Sheet(), rows);
  const std::vector<std::pair<const char*, std::function<void()>>> ways = {
      {"another control", [&] { SetFocus(Item(kBtnSave)); }},
      {"the grid", [&] { SetFocus(Item(kFlxEntries)); }},
      {"scrolling", [&] { SendMessageA(Item(kFlxEntries), WM_VSCROLL, SB_PAGEDOWN, 0); }},
      {"resizing",
       [&] {
         RECT rect;
         GetWindowRect(window.Handle(), &rect);
         SetWindowPos(window.Handle(), nullptr, 0, 0, rect.right - rect.left + 40,
                      rect.bottom - rect.top + 40, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
       }},
  };
  for (const auto& [name, drop] : ways) {
    SCOPED_TRACE(name);
    Sheet().SetTopRow(1);
    Edit(1, EntryColumn::kScripId);
    SetWindowTextA(Item(kTxtEditor), "typed");
    ASSERT_TRUE(Shown(kTxtEditor));
    drop();
    Pump();
    EXPECT_TRUE(isDropped());
  }
}

TEST_F(frmMainTest, CommittingDoesNotScroll) {
  FillRows(Sheet(), std::vector<std::string>(500));
  Sheet().SetTopRow(300);
  const int top = Sheet().TopRow();
  EditText(top + 2, EntryColumn::kQuantity, "5");
  EXPECT_EQ(Sheet().TopRow(), top);
}

TEST_F(frmMainTest, ThePickerStartsWithTheCellOrTheCellAboveAndWritesEveryChange) {
  FillRows(Sheet(), {EntryCells({{EntryColumn::kTradeDate, "03-Jan-2010"}}), "2"});
  Edit(2, EntryColumn::kTradeDate);
  ASSERT_EQ(GetFocus(), Item(kDtpDate));
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kTradeDate), "");
  PickDay(kDtpDate, {2010, 3, 9});
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kTradeDate), "09-Mar-2010");
  EXPECT_TRUE(Shown(kDtpDate));
  Type(kDtpDate, '\r');
  EXPECT_FALSE(Shown(kDtpDate));
  EXPECT_EQ(GetFocus(), Item(kFlxEntries));

  Edit(2, EntryColumn::kDeliveryDate);  // nothing to start with: the picker's own value
  Type(kDtpDate, '\r');
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kDeliveryDate), "09-Mar-2010");
}

TEST_F(frmMainTest, ADayFromTradeFileToSavedFile) {
  platform.files = {Write("payin_05-01-2010.txt", kTrades)};
  Click(kBtnLoadFromBTFile);
  EXPECT_EQ(platform.fileRequests.at(0).title, "Choose Text FIle");
  EXPECT_THAT(ColumnOf(Sheet(), EntryColumn::kQuantity), ElementsAre("50", "25", "100"));
  Click(kBtnAutoFields);
  platform.answers = {MessageAnswer::Yes};
  Click(kBtnSummarize);
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"Are you sure to summarize individual BOs ISIN quantities?",
                     "Confirm Summarize", MessageIcon::Question, MessageButtons::YesNo}));
  const std::vector<std::string> rows = {
      "1|123456|1201950000009999|03-Jan-2010|05-Jan-2010|C1|1201950000000001|ANN ALDER|ALPHAM|"
      "KX0001000011|ALPHA MILLS LTD|75|I1234560301101",
      "2|123456|1201950000009999|03-Jan-2010|05-Jan-2010|C2|1201950000000002|BEN BIRCH|BRAVOB|"
      "KX0002000029|BRAVO BANK LTD|100|I1234560301102"};
  EXPECT_EQ(RowsOf(Sheet()), rows);

  platform.answers = {MessageAnswer::Yes};
  Click(kBtnSave);
  EXPECT_THAT(
      platform.messages,
      ElementsAre(Message{"Are you sure to save the Pay In file of 05-Jan-2010 ?",
                          "Save Confirmation", MessageIcon::Question, MessageButtons::YesNo},
                  Message{"Pay In file of 05-Jan-2010 saved successfully.", "File Saved.",
                          MessageIcon::Information, MessageButtons::Ok}));
  platform.messages.clear();
  EXPECT_THAT(ReadWholeFile(folder.Path() + "05-Jan-2010_PI_123456.txt"),
              EndsWith("~100~I1234560301102\r"));

  FillRows(Sheet(), {"1|lost"});
  platform.answers = {MessageAnswer::Yes};
  Click(kBtnReload);
  EXPECT_EQ(platform.TakeMessage().title, "Load Confirmation");
  std::vector<std::string> reloaded = rows;
  reloaded.back() += "\r";  // the file's closing carriage return
  EXPECT_EQ(RowsOf(Sheet()), reloaded);
}

TEST_F(frmMainTest, ImportsOfOtherFilesAreRefusedAndCancelsChangeNothing) {
  FillRows(Sheet(), {"1|kept"});
  Click(kBtnLoadFromBTFile);  // cancelled
  EXPECT_TRUE(platform.messages.empty());
  platform.files = {"C:\\trades_05-01-2010.txt", "C:\\payin_never.txt"};
  Click(kBtnLoadFromBTFile);
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"Unknown file name format.", "Invalid File", MessageIcon::Critical}));
  Click(kBtnLoadFromBTFile);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Type mismatch", "Tallyrun", MessageIcon::None}));
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

TEST_F(frmMainTest, AFailedSaveShowsTheErrorAlone) {
  Settings.backupLocation = folder.Path() + "missing\\";
  platform.answers = {MessageAnswer::Yes};
  Click(kBtnSave);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[1], (Message{"Path not found", "Tallyrun", MessageIcon::None}));
}

TEST_F(frmMainTest, ClosingTheWindowClosesTheListToo) {
  Click(kBtnList);
  EXPECT_EQ(Form::LoadedForms().size(), 2u);
  Click(kBtnExit);
  RunMessageLoop();
  EXPECT_TRUE(Form::LoadedForms().empty());
}

}  // namespace
}  // namespace tallyrun
