// The entry sheet in its real window: clicked, typed into and told to move the focus.
#include <gmock/gmock.h>

#include "app/frmMain.h"
#include "core/files/modFileIO.h"
#include "tests/support/GridText.h"
#include "tests/support/MainWindowFixture.h"
#include "ui/MessageLoop.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;
using ::testing::ElementsAre;

using frmMainTest = MainWindowFixture;

const Message kLoseRows = {"Unsaved data will be lost.\r\nAre you sure to continue?",
                           "Confirm Loading", MessageIcon::Question, MessageButtons::YesNo};

TEST_F(frmMainTest, TheModeShowsInEverythingThatDependsOnIt) {
  EXPECT_EQ(RowsOf(Sheet()), std::vector<std::string>{"1||||||||||||"});
  EXPECT_EQ(PickedDay(), (Date{2010, 1, 6}));
  for (const bool payOut : {false, true}) {
    if (payOut) Click(kOptPayOut);
    const std::string name = payOut ? "Pay Out" : "Pay In";
    EXPECT_EQ(EntryMode, payOut ? kPayOut : kPayIn);
    EXPECT_EQ(window.Caption(), "Tallyrun v1.0 : " + name);
    EXPECT_THAT(On(kFlxEntries).ToolTip(),
                ::testing::StartsWith(name + " entries. Press INSERT key"));
    EXPECT_EQ(On(kDtpPayInOrPayOut).Bounds().y, On(payOut ? kOptPayOut : kOptPayIn).Bounds().y);
    EXPECT_EQ(On(kBtnLoadFromBTFile).Text(), payOut ? "Load Payout" : "Load Payin");
    EXPECT_EQ(On(kBtnCheck).Enabled(), !payOut);
  }
  EXPECT_TRUE(platform.messages.empty());  // an empty sheet switches without a question
}

TEST_F(frmMainTest, ADeclinedSwitchKeepsEverythingAndSkipsOneLoad) {
  const std::string trade = "0|ALPHAM|2|S|50|5|C1|7|8|9|03-01-2010\r\n";
  const std::string path = folder.Write("payin_05-01-2010.txt", trade + trade + trade);
  FillRows(Sheet(), {"1", "2"});
  Click(kOptPayOut);
  EXPECT_EQ(platform.TakeMessage(), kLoseRows);
  EXPECT_EQ(EntryMode, kPayIn);
  EXPECT_TRUE(On(kOptPayIn).HasFocus());
  EXPECT_TRUE(On<OptionButton>(kOptPayIn).Value());

  platform.files = {path, path, path};
  Click(kBtnLoadFromBTFile);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(PickedDay(), (Date{2010, 1, 5}));
  for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
    EXPECT_EQ(Sheet().Rows(), 3);
    platform.answers = {answer};
    Click(kBtnLoadFromBTFile);
    EXPECT_EQ(platform.TakeMessage(), kLoseRows);
  }
  EXPECT_EQ(Sheet().Rows(), 4);
  platform.answers = {MessageAnswer::Yes};
  Click(kOptPayOut);
  EXPECT_EQ(EntryMode, kPayOut);
  EXPECT_EQ(RowsOf(Sheet()), std::vector<std::string>{"1||||||||||||"});
}

TEST_F(frmMainTest, InsertAndDeleteActOncePerReleaseWhereverTheFocusIs) {
  for (const int id : {kFlxEntries, kOptPayIn, kBtnSave, kChkFreeEntry, kTxtSearch, kCmbSearch,
                       kDtpPayInOrPayOut, kBtnExit}) {
    SCOPED_TRACE(id);
    FillRows(Sheet(), {"1|x"});
    On(id).SetFocus();
    PressKey(VK_INSERT);
    EXPECT_EQ(Sheet().Rows(), 3);
    EXPECT_EQ(On(kDtpDate).Visible(), id != kBtnExit);

    platform.messages.clear();
    platform.answers = {MessageAnswer::Yes};
    On(id).SetFocus();
    EXPECT_FALSE(IsEditing());
    PressKey(VK_DELETE);
    const bool editsText = id == kTxtSearch || id == kDtpPayInOrPayOut;
    EXPECT_EQ(platform.messages.size(), editsText ? 0u : 1u);
    EXPECT_EQ(Sheet().Rows(), editsText ? 3 : 2);
  }
}

TEST_F(frmMainTest, TheEditorCoversItsCellCompletesAndComesBackToTheGrid) {
  FillRows(Sheet(), {"1", "2|||||| "});
  EditText(1, EntryColumn::kBoId, "2");
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kBoName), "BEN BIRCH");
  EXPECT_FALSE(IsEditing());
  EXPECT_TRUE(On(kFlxEntries).HasFocus());

  Edit(2, EntryColumn::kBoId);
  EXPECT_EQ(On(kTxtEditor).Bounds(),
            On<FlexGridControl>(kFlxEntries).CellBoundsInParent(2, EntryColumn::kBoId));
  EXPECT_EQ(On(kTxtEditor).Text(), "1201950000000002");  // offered from the row above
  EXPECT_EQ(SendMessageA(Item(kTxtEditor), EM_GETSEL, 0, 0), MAKELONG(0, 16));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(On(kFlxEntries).HasFocus());

  std::string underTheBox;
  platform.onMessage = [&](const Message&) { underTheBox = On(kTxtEditor).Text(); };
  const struct {
    int col;
    const char *typed, *refused, *text, *title;
  } cases[] = {
      {EntryColumn::kBoId, " 12345678901234567 ", "12345678901234567",
       "BOID length can not be greater than 16.", "Tallyrun"},
      {EntryColumn::kQuantity, " 1,5a", "15a", "Quantity must be numeric.", "Invalid Entry."}};
  for (const auto& each : cases) {
    EditText(2, each.col, each.typed);
    EXPECT_EQ(platform.TakeMessage(), (Message{each.text, each.title, MessageIcon::Critical}));
    EXPECT_EQ(underTheBox, each.refused);
    EXPECT_TRUE(On(kTxtEditor).Visible());
    Click(kChkFreeEntry);  // refused with it as well
  }
  EXPECT_EQ(RowsOf(Sheet())[1], "2|||||| ||||||");
}

TEST_F(frmMainTest, WhatTakesTheFocusOrMovesTheCellDropsTheEdit) {
  int width = 1200;
  const std::function<void()> ways[] = {
      [&] { On(kBtnSave).SetFocus(); },
      [&] { On(kFlxEntries).SetFocus(); },
      [&] { SendMessageA(Item(kFlxEntries), WM_VSCROLL, SB_PAGEDOWN, 0); },
      [&] {
        SetWindowPos(window.Handle(), nullptr, 0, 0, width -= 20, 500, SWP_NOMOVE | SWP_NOZORDER);
      },
  };
  FillRows(Sheet(), std::vector<std::string>(200));
  for (const int col : {EntryColumn::kScripId, EntryColumn::kTradeDate}) {
    for (const auto& drop : ways) {
      Sheet().SetTopRow(1);
      Edit(1, col);
      On(kTxtEditor).SetText("typed");
      EXPECT_TRUE(IsEditing());
      drop();
      EXPECT_FALSE(IsEditing()) << &drop - ways;
      EXPECT_EQ(Sheet().Text(1, col), "");
    }
  }
  Sheet().SetTopRow(100);
  EditText(102, EntryColumn::kQuantity, "5");
  EXPECT_EQ(Sheet().TopRow(), 100);  // keeping an edit does not scroll
}

TEST_F(frmMainTest, ThePickerStartsWithTheCellAboveAndWritesEveryChange) {
  FillRows(Sheet(), {"1|||03-Jan-2010", "2|||soon"});
  Edit(2, EntryColumn::kTradeDate);
  EXPECT_EQ(On<DatePicker>(kDtpDate).Value(), (Date{2010, 1, 3}));
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kTradeDate), "soon");
  PickDay(On<DatePicker>(kDtpDate), {2010, 3, 9});
  EXPECT_EQ(Sheet().Text(2, EntryColumn::kTradeDate), "09-Mar-2010");
  EXPECT_TRUE(On(kDtpDate).Visible());
  Edit(1, EntryColumn::kTradeDate);
  PressKey(VK_RETURN);
  EXPECT_EQ(Sheet().Text(1, EntryColumn::kTradeDate), "03-Jan-2010");
  EXPECT_TRUE(On(kFlxEntries).HasFocus());
}

TEST_F(frmMainTest, BadFilesGetTheirMessageAndTheRowsStay) {
  FillRows(Sheet(), {"1|kept"});
  platform.files = {std::nullopt, "C:\\trades_05-01-2010.txt", "C:\\payin_never.txt"};
  for (int file = 0; file < 3; ++file) Click(kBtnLoadFromBTFile);
  Settings.backupLocation = folder.Path() + "missing\\";
  platform.answers = {MessageAnswer::Yes};
  Click(kBtnSave);
  const Message unknown = {"Unknown file name format.", "Invalid File", MessageIcon::Critical};
  EXPECT_THAT(platform.messages, ElementsAre(unknown, Message{"Type mismatch"}, ::testing::_,
                                             Message{"Path not found"}));
  EXPECT_EQ(Sheet().Text(1, 1), "kept");
}

TEST_F(frmMainTest, SearchGoesToTheFoundRow) {
  FillRows(Sheet(), {"1|||||||ABC LTD", "2", "3"});
  On<ComboBox>(kCmbSearch).SetListIndex(2);
  On(kTxtSearch).SetText(" abc ");
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
