#include <gmock/gmock.h>

#include "core/EntryRow.h"
#include "holding/CheckHoldings.h"
#include "holding/FramePacer.h"
#include "tests/support/FakeBusyWindow.h"
#include "tests/support/GridText.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun {
namespace {

using testing::EntryCells;
using testing::FakeBusyWindow;
using testing::FillRows;
using testing::RecordingPlatform;
using testing::TempFolder;

constexpr char kCaption[] = "Tallyrun v1.0 : Pay In";

Message Refusal(const std::string& text, const std::string& title) {
  return {text, title, MessageIcon::Critical, MessageButtons::Ok};
}

const Message kHoldingCheckError =
    Refusal("Error checking BO account holding balance.", "Holding Check Error.");

class CheckHoldingsTest : public ::testing::Test {
 protected:
  CheckHoldingsTest() {
    grid.SetCols(EntryColumn::kCount);
    grid.SetText(0, EntryColumn::kBoId, "BO ID");
    grid.SetText(0, EntryColumn::kIsinCode, "ISIN Code");
    grid.SetPageRows(1);
    window.caption = "busy";
    window.pointer = PointerShape::Hourglass;
    EntryMode = kPayIn;
    HoldingMessage = "of the check before\r\n";
    // Whatever the way out, the clerk meets a window that is at rest when a box is up.
    platform.onMessage = [this](const Message&) { ExpectAtRest(); };
  }
  ~CheckHoldingsTest() override { EntryMode = {}; }

  struct Row {
    const char* boId;
    const char* isin;
    const char* quantity;
  };
  void Fill(const std::vector<Row>& rows) {
    std::vector<std::string> cells;
    for (const Row& row : rows) {
      cells.push_back(EntryCells({{EntryColumn::kBoId, row.boId},
                                  {EntryColumn::kIsinCode, row.isin},
                                  {EntryColumn::kQuantity, row.quantity}}));
    }
    FillRows(grid, cells);
  }

  bool CheckAgainst(const std::string& holdings) {
    folder.Write("11DPA6UX.TXT",
                 "Report for HOLDINGS : 1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n" + holdings);
    return CheckHoldingFile(check, folder / "11DPA6UX.TXT");
  }

  void ExpectAtRest() {
    EXPECT_EQ(window.caption, kCaption);
    EXPECT_EQ(window.pointer, PointerShape::Normal);
  }
  void ExpectRowShown(int row) {
    EXPECT_EQ(grid.Row(), row);
    EXPECT_EQ(grid.RowSel(), row);
    EXPECT_EQ(std::min(grid.Col(), grid.ColSel()), 0);
    EXPECT_EQ(std::max(grid.Col(), grid.ColSel()), EntryColumn::kCount - 1);
    EXPECT_TRUE(grid.IsRowVisible(row));
  }

  FlexGrid grid;
  FakeBusyWindow window;
  RecordingPlatform platform;
  TempFolder folder;
  std::string savedCaption = kCaption;
  std::vector<std::string> messagesShown;
  std::vector<int> rowsPainted;
  HoldingCheck check{grid, window, savedCaption,
                     [this] {
                       rowsPainted.push_back(grid.Row());
                       EXPECT_EQ(window.caption, "Tallyrun v1.0 : ...Checking balance on HOLDINGS");
                       EXPECT_EQ(window.pointer, PointerShape::Hourglass);
                       ExpectRowShown(grid.Row());
                     },
                     [this] { messagesShown.push_back(HoldingMessage); }};
};

TEST_F(CheckHoldingsTest, TheChosenFileIsCheckedAndCancellingStops) {
  platform.files = {folder / "gone.txt"};
  EXPECT_TRUE(CheckHoldings(check));
  EXPECT_EQ(platform.TakeMessage(), kHoldingCheckError);
  EXPECT_TRUE(CheckHoldings(check));
  EXPECT_EQ(platform.TakeMessage(),
            Refusal("You must select a holding file(DPA6UX.TXT) before sending to KTX.",
                    "Holding Not Checked."));
  EXPECT_EQ(platform.fileRequests[0].title, "Choose Holding FIle (11DPA6UX.TXT)");
  EXPECT_EQ(platform.fileRequests[0].filters.at(0).pattern, "*.TXT");
}

TEST_F(CheckHoldingsTest, AnEmptyFileIsRefused) {
  folder.Write("empty.txt", "");
  EXPECT_TRUE(CheckHoldingFile(check, folder / "empty.txt"));
  EXPECT_EQ(platform.TakeMessage(),
            Refusal("The selected file is empty.\r\n"
                    "Please properly select the holding file (11DPA6UX.TXT).",
                    "Empty File."));
  EXPECT_EQ(HoldingMessage, "of the check before\r\n");
}

struct CheckCase {
  const char* name;
  std::vector<std::array<const char*, 3>> rows;
  const char* holdings;
  const char* message;  // "" when every row passes
  int firstFailing;
};

TEST_F(CheckHoldingsTest, EveryRowIsHeldAgainstItsFirstHoldingLine) {
  const CheckCase cases[] = {
      {"enough to the last one", {{"120", "XX1", "500"}}, "120 XX1 500\r\n", "", 0},
      {"one too few",
       {{"120", "XX1", "501"}},
       "120 XX1 500\r\n",
       "120 XX1 holding insufficient. Pay In quantity : 501 Holding balance : 500\r\n",
       1},
      {"absent, and other letter case is absent",
       {{"120", "XX1", "1"}, {"ab", "XX2", "1"}},
       "121 XX1 500\r\nAB XX2 500\r\n",
       "120 XX1 holding balance missing.\r\nab XX2 holding balance missing.\r\n",
       1},
      {"the first line that contains both counts",
       {{"120", "XX1", "7"}},
       "9912099 XX1 5\r\n120 XX1 500\r\n",
       "120 XX1 holding insufficient. Pay In quantity : 7 Holding balance : 5\r\n",
       1},
      {"neighbours with one holding are added up",
       {{"120", "XX1", "300"}, {"120", "XX1", "300"}, {"120", "XX1", "1"}},
       "120 XX1 500",
       "120 XX1 holding insufficient. Pay In quantity : 600 Holding balance : 500\r\n"
       "120 XX1 holding insufficient. Pay In quantity : 601 Holding balance : 500\r\n",
       2},
      {"rows that stand apart are not",
       {{"120", "XX1", "300"}, {"120", "XX2", "1"}, {"120", "XX1", "300"}, {"121", "XX1", "300"}},
       "120 XX1 XX2 500\r\n121 XX1 300",
       "",
       0},
      {"the captions are no row to add to",
       {{"BO ID", "ISIN Code", "5"}},
       "BO ID ISIN Code 5",
       "",
       0},
      {"quantities are rounded half to even, each and in every sum",
       {{"120", "XX1", "0.5"}, {"120", "XX1", "1.5"}, {"120", "XX1", "0.5"}},
       "120 XX1 1",
       "120 XX1 holding insufficient. Pay In quantity : 2 Holding balance : 1\r\n"
       "120 XX1 holding insufficient. Pay In quantity : 2 Holding balance : 1\r\n",
       2},
      {"a balance is a number, shown as it stands",
       {{"120", "XX1", "1,000"}, {"121", "XX1", "3"}, {"122", "XX1", "11"}},
       "120 XX1 1,000.000\r\n121 XX1 2.5\r\n122 XX1 1e1\r",
       "121 XX1 holding insufficient. Pay In quantity : 3 Holding balance : 2.5\r\n"
       "122 XX1 holding insufficient. Pay In quantity : 11 Holding balance : 1e1\r\r\n",
       2},
  };
  for (const CheckCase& each : cases) {
    SCOPED_TRACE(each.name);
    std::vector<Row> rows;
    for (const auto& row : each.rows) rows.push_back({row[0], row[1], row[2]});
    Fill(rows);
    messagesShown.clear();
    const std::string message = each.message;
    EXPECT_EQ(CheckAgainst(each.holdings), !message.empty());
    EXPECT_EQ(HoldingMessage, message);
    EXPECT_EQ(messagesShown,
              message.empty() ? std::vector<std::string>{} : std::vector<std::string>{message});
    EXPECT_FALSE(rowsPainted.empty());
    ExpectRowShown(each.firstFailing != 0 ? each.firstFailing : grid.Rows() - 1);
    ExpectAtRest();
  }
  EXPECT_TRUE(platform.messages.empty());
}

struct ErrorCase {
  const char* name;
  const char* quantity;  // of row 3
  const char* balance;   // of row 3
};

TEST_F(CheckHoldingsTest, AnErrorEndsTheCheckInTheRowWhereItIsMet) {
  const ErrorCase cases[] = {
      {"a balance that is no number", "1", "none"},
      {"an empty balance", "1", ""},
      {"no quantity", "", "1"},
      {"a quantity past 32 bits", "2147483648", "1"},
      {"a sum past 32 bits", "2147483647", "1"},
  };
  for (const ErrorCase& each : cases) {
    SCOPED_TRACE(each.name);
    // Row 4 would fail as well, but is never reached.
    Fill({{"119", "XX1", "9"}, {"120", "XX1", "1"}, {"120", "XX1", each.quantity}, {"1", "1", ""}});
    const std::string balance = each.balance;
    if (balance != "1") grid.SetText(2, EntryColumn::kBoId, "118");
    EXPECT_TRUE(CheckAgainst("118 XX1 1\r\n119 XX1 5\r\n120 XX1 " + balance));
    EXPECT_EQ(platform.TakeMessage(), kHoldingCheckError);
    EXPECT_EQ(HoldingMessage,
              "119 XX1 holding insufficient. Pay In quantity : 9 Holding balance : 5\r\n");
    EXPECT_TRUE(messagesShown.empty());
    ExpectRowShown(3);
  }
}

TEST_F(CheckHoldingsTest, AFileWithoutSubjectIsAnError) {
  Fill({{"120", "XX1", "1"}});
  folder.Write("no subject.txt", "Holdings :\r\nReport for A :");
  EXPECT_TRUE(CheckHoldingFile(check, folder / "no subject.txt"));
  EXPECT_EQ(platform.TakeMessage(), kHoldingCheckError);
  EXPECT_EQ(HoldingMessage, "of the check before\r\n");
}

TEST_F(CheckHoldingsTest, UnsummarizedNeighboursStopASend) {
  Fill({{"120", "XX1", "1"}, {"120", "XX2", "1"}, {"121", "XX2", "1"}, {"120", "XX1", "1"}});
  EXPECT_FALSE(CheckSummarized(check));
  EXPECT_EQ(window.caption, "busy");  // the send goes on

  Fill({{"120", "XX1", "1"}, {"120", "XX2", "1"}, {"120", "XX2", "1"}, {"120", "XX2", "1"}});
  EXPECT_TRUE(CheckSummarized(check));
  EXPECT_EQ(platform.TakeMessage(),
            Refusal("Please summarize records before sending.", "Not Summarized."));
  ExpectRowShown(2);
}

TEST(FramePacerTest, IsDueSixtyTimesASecond) {
  FramePacer pacer;
  int due = 0;
  for (int millisecond = 0; millisecond < 1000; ++millisecond) {
    due += pacer.IsDue(FramePacer::Clock::time_point(std::chrono::milliseconds(millisecond)));
  }
  EXPECT_GE(due, 55);
  EXPECT_LE(due, 61);
}

}  // namespace
}  // namespace tallyrun
