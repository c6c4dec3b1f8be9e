#include "core/files/modFileIO.h"
#include "holding/CheckHoldings.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

constexpr char kCaption[] = "Tallyrun v1.0 : Pay In";
constexpr char kSending[] = "Tallyrun v1.0 : Pay In...sending";
constexpr char kHeader[] = "Report for HOLDINGS : 1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n";

std::string Short(const std::string& boId, int quantity, const std::string& balance) {
  return boId + " XX1 holding insufficient. Pay In quantity : " + std::to_string(quantity) +
         " Holding balance : " + balance + "\r\n";
}

struct CheckHoldingsTest : ProgramFixture {
  CheckHoldingsTest() {
    grid.SetCols(EntryColumn::kCount);
    grid.SetText(0, EntryColumn::kBoId, "BO_ID");
    grid.SetText(0, EntryColumn::kIsinCode, "ISIN_Code");
    grid.SetPageRows(1);
    busyWindow.SetCaption(kCaption);
    send.Show("...sending");
    EntryMode = kPayIn;
    // Whatever the way out, the clerk meets a window that is at rest when a box is up.
    platform.onMessage = [this](const Message&) { ExpectWindow(kCaption); };
  }

  // Rows written "BO ID,ISIN,quantity", parted by blanks.
  void Fill(const std::string& texts) {
    std::vector<std::string> rows;
    for (const auto text : Split(texts, " ")) {
      const auto cells = Split(text, ",");
      rows.push_back(EntryCells({{EntryColumn::kBoId, cells[0]},
                                 {EntryColumn::kIsinCode, cells[1]},
                                 {EntryColumn::kQuantity, cells[2]}}));
    }
    FillRows(grid, rows);
  }
  bool CheckAgainst(const std::string& file) {
    folder.Write("11DPA6UX.TXT", file);
    return CheckHoldingFile(check, folder / "11DPA6UX.TXT");
  }
  void ExpectRowShown(int row) {
    EXPECT_EQ(grid.Row(), row);
    EXPECT_EQ(std::abs(grid.Col() - grid.ColSel()), EntryColumn::kCount - 1);
    EXPECT_TRUE(grid.IsRowVisible(row));
  }

  BusyScope send{busyWindow};
  std::string shown;
  HoldingCheck check{grid, busyWindow,
                     [this] {
                       ExpectWindow("Tallyrun v1.0 : ...Checking balance on HOLDINGS",
                                    PointerShape::Hourglass);
                       ExpectRowShown(grid.Row());
                     },
                     [this] { shown += HoldingMessage; }};
};

TEST_F(CheckHoldingsTest, EveryRowIsHeldAgainstItsFirstHoldingLine) {
  const struct {
    const char *rows, *holdings;
    std::string message;  // "" when every row passes
    int firstFailing = 0;
  } cases[] = {
      {"121,X,1 ab,Y,1", "121 X 1\r\nAB Y 500", "ab Y holding balance missing.\r\n", 2},
      // The first line that contains both counts.
      {"120,XX1,7", "9912099 XX1 5\r\n120 XX1 500\r\n", Short("120", 7, "5"), 1},
      // Neighbours with one holding are added up; rows that stand apart and captions are not.
      {"120,XX1,300 120,XX1,300 120,XX1,1", "120 XX1 500",
       Short("120", 600, "500") + Short("120", 601, "500"), 2},
      {"120,XX1,300 120,XX2,1 120,XX1,300 121,XX1,300", "120 XX1 XX2 500\r\n121 XX1 300", ""},
      {"BO_ID,ISIN_Code,5", "BO_ID ISIN_Code 5", ""},
      // Quantities are rounded half to even, each and in every sum.
      {"120,XX1,0.5 120,XX1,1.5 120,XX1,0.5", "120 XX1 1",
       Short("120", 2, "1") + Short("120", 2, "1"), 2},
      // A balance is a number, shown as it stands.
      {"120,XX1,1000 121,XX1,3 122,XX1,11", "120 XX1 1,000.000\r\n121 XX1 2.5\r\n122 XX1 1e1\r",
       Short("121", 3, "2.5") + Short("122", 11, "1e1\r"), 2}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.holdings);
    Fill(each.rows);
    shown.clear();
    EXPECT_EQ(CheckAgainst(std::string(kHeader) + each.holdings), each.firstFailing != 0);
    EXPECT_EQ(HoldingMessage, each.message);
    EXPECT_EQ(shown, each.message);
    ExpectRowShown(each.firstFailing != 0 ? each.firstFailing : grid.Rows() - 1);
    ExpectWindow(kSending, PointerShape::Hourglass);
  }
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CheckHoldingsTest, AnErrorEndsTheCheckInTheRowWhereItIsMet) {
  const std::pair<const char*, const char*> quantitiesAndBalances[] = {
      {"1", "none"}, {"", "1"}, {"2147483647", "1"}};
  for (const auto& [quantity, balance] : quantitiesAndBalances) {
    SCOPED_TRACE(std::string(quantity) + " of " + balance);
    // The last pair fails by its sum. Row 4 would fail as well, but is never reached.
    const std::string boId = std::string(balance) == "1" ? "120" : "118";
    Fill("119,XX1,9 " + boId + ",XX1,1 120,XX1," + quantity + " 1,1,");
    EXPECT_TRUE(
        CheckAgainst(std::string(kHeader) + "118 XX1 1\r\n119 XX1 5\r\n120 XX1 " + balance));
    EXPECT_EQ(platform.TakeMessage().title, "Holding Check Error.");
    EXPECT_EQ(HoldingMessage, Short("119", 9, "5"));
    EXPECT_EQ(shown, "");
    ExpectRowShown(3);
  }
}

TEST_F(CheckHoldingsTest, UnsummarizedNeighboursStopASend) {
  Fill("120,XX1,1 120,XX2,1 121,XX2,1 120,XX1,1");
  EXPECT_FALSE(CheckSummarized(check));
  Fill("120,XX1,1 120,XX2,1 120,XX2,1 120,XX2,1");
  EXPECT_TRUE(CheckSummarized(check));
  EXPECT_EQ(platform.TakeMessage().text, "Please summarize records before sending.");
  ExpectRowShown(2);
}

}  // namespace
}  // namespace tallyrun::testing
