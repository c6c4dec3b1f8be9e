#include <gmock/gmock.h>

#include "app/CellRules.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

class CellRulesTest : public EntrySheetFixture {
 protected:
  // The row before every case: all cells that a rule may fill hold something.
  static std::string Before() {
    return EntryCells({{EntryColumn::kClientCode, "client"},
                       {EntryColumn::kBoId, "bo"},
                       {EntryColumn::kBoName, "name"},
                       {EntryColumn::kScripId, "scrip"},
                       {EntryColumn::kIsinCode, "isin"},
                       {EntryColumn::kIsinName, "isin name"},
                       {EntryColumn::kQuantity, "1"}});
  }
};

struct CommitCase {
  int col;
  const char* typed;
  const char* row;  // columns 5 to 11 afterwards
  bool freeEntry = false;
};

std::string Columns5To11(const FlexGrid& grid) {
  std::string cells;
  for (int col = 5; col <= 11; ++col) cells.append(col > 5 ? "|" : "").append(grid.Text(1, col));
  return cells;
}

TEST_F(CellRulesTest, KeyColumnsFillTheCellsThatFollowFromThem) {
  using namespace EntryColumn;
  const CommitCase cases[] = {
      {kBoId, " 002 ", "C2|1201950000000002|BEN BIRCH|scrip|isin|isin name|1"},
      {kBoId, "1201950000000001", "C1|1201950000000001|ANN ALDER|scrip|isin|isin name|1"},
      {kBoId, "9", "|1201950000000009|BO NAME NOT FOUND|scrip|isin|isin name|1"},
      {kBoId, "  ", "|||scrip|isin|isin name|1"},
      {kClientCode, "C3", "C3|1201950000000003|CL\xC9O CEDAR|scrip|isin|isin name|1"},
      {kClientCode, "c3", "c3||BO NAME NOT FOUND|scrip|isin|isin name|1"},
      {kClientCode, "", "|||scrip|isin|isin name|1"},
      {kScripId, "rav", "client|bo|name|rav|KX0002000029|BRAVO BANK LTD|1"},
      {kScripId, "zz", "client|bo|name|zz||ISIN NAME NOT FOUND|1"},
      {kScripId, "", "client|bo|name||||1"},
      {kIsinCode, "x0003", "client|bo|name|CHARLC|KX0003000037|CHARLIE CABLE LTD|1"},
      {kIsinCode, "ZZ", "client|bo|name||ZZ|ISIN NAME NOT FOUND|1"},
      {kIsinCode, "", "client|bo|name||||1"},
      {kQuantity, "1,500", "client|bo|name|scrip|isin|isin name|1500"},
      {kQuantity, ",", "client|bo|name|scrip|isin|isin name|"},
      {kBoName, " other ", "client|bo|other|scrip|isin|isin name|1"},
      // Free Entry leaves the completion in force and looks nothing up.
      {kBoId, "2", "client|1201950000000002|name|scrip|isin|isin name|1", true},
      {kBoId, "", "|||scrip|isin|isin name|1", true},
      {kClientCode, "", "|bo|name|scrip|isin|isin name|1", true},
      {kScripId, "rav", "client|bo|name|rav|isin|isin name|1", true},
      {kIsinCode, "x0003", "client|bo|name|scrip|x0003|isin name|1", true},
      {kQuantity, "2,0", "client|bo|name|scrip|isin|isin name|20", true},
  };
  for (const CommitCase& each : cases) {
    SCOPED_TRACE(std::to_string(each.col) + ": " + each.typed);
    FillRows(grid, {Before()});
    const std::string text = TidiedCellText(each.col, each.typed);
    EXPECT_TRUE(CommitCellText(grid, 1, each.col, text, each.freeEntry));
    EXPECT_EQ(Columns5To11(grid), each.row);
  }
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(grid.ColWidth(kIsinName), 19 * 100 + 200);  // widened by the longest
}

TEST_F(CellRulesTest, ARefusedTextLeavesTheRow) {
  for (const bool freeEntry : {false, true}) {
    FillRows(grid, {Before()});
    EXPECT_FALSE(CommitCellText(grid, 1, EntryColumn::kBoId, "12345678901234567", freeEntry));
    EXPECT_EQ(platform.TakeMessage(), (Message{"BOID length can not be greater than 16.",
                                               "Tallyrun", MessageIcon::Critical}));
    EXPECT_FALSE(CommitCellText(grid, 1, EntryColumn::kQuantity, "15a", freeEntry));
    EXPECT_EQ(platform.TakeMessage(),
              (Message{"Quantity must be numeric.", "Invalid Entry.", MessageIcon::Critical}));
    EXPECT_EQ(RowsOf(grid), std::vector<std::string>{Before()});
  }
  Settings = {};  // never loaded: there is no length that a BOID may have
  EXPECT_FALSE(CommitCellText(grid, 1, EntryColumn::kBoId, "1", false));
  EXPECT_EQ(platform.TakeMessage().text, "BOID length can not be greater than 0.");
}

TEST_F(CellRulesTest, EditorsStartWithTheCellOrElseWithTheCellAbove) {
  FillRows(grid, {EntryCells({{3, "05-Jan-2010"}, {8, "first"}}),
                  EntryCells({{3, "soon"}, {8, " "}}), EntryCells({{3, "6-1-10"}, {8, "third"}})});
  EXPECT_EQ(EditorTextFor(grid, 2, 8), "first");
  EXPECT_EQ(EditorTextFor(grid, 3, 8), "third");
  EXPECT_EQ(EditorTextFor(grid, 1, 9), "");
  EXPECT_EQ(EditorDateFor(grid, 2, 3), (Date{2010, 1, 5}));
  EXPECT_EQ(EditorDateFor(grid, 3, 3), (Date{2010, 1, 6}));
  EXPECT_EQ(EditorDateFor(grid, 1, 4), std::nullopt);
}

}  // namespace
}  // namespace tallyrun::testing
