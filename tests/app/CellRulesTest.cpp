#include "app/CellRules.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

using CellRulesTest = EntrySheetFixture;

TEST_F(CellRulesTest, KeyColumnsFillTheCellsThatFollowFromThem) {
  using namespace EntryColumn;
  const struct {
    int col;
    const char *typed, *row;  // columns 5 to 11 afterwards
    bool freeEntry = false;
  } cases[] = {
      {kBoId, " 002 ", "C2|1201950000000002|BEN BIRCH|scrip|isin|isin name|1"},
      {kBoId, "9", "|1201950000000009|BO NAME NOT FOUND|scrip|isin|isin name|1"},
      {kBoId, "  ", "|||scrip|isin|isin name|1"},
      {kClientCode, "C3", "C3|1201950000000003|CL\xC9O CEDAR|scrip|isin|isin name|1"},
      {kClientCode, "c3", "c3||BO NAME NOT FOUND|scrip|isin|isin name|1"},
      {kScripId, "rav", "client|bo|name|rav|KX0002000029|BRAVO BANK LTD|1"},
      {kScripId, "zz", "client|bo|name|zz||ISIN NAME NOT FOUND|1"},
      {kScripId, "", "client|bo|name||||1"},
      {kIsinCode, "x0003", "client|bo|name|CHARLC|KX0003000037|CHARLIE CABLE LTD|1"},
      {kQuantity, "1,500", "client|bo|name|scrip|isin|isin name|1500"},
      // Free Entry leaves the completion in force and looks nothing up.
      {kBoId, "2", "client|1201950000000002|name|scrip|isin|isin name|1", true},
      {kBoId, "", "|||scrip|isin|isin name|1", true},
      {kClientCode, "", "|bo|name|scrip|isin|isin name|1", true},
      {kIsinCode, "x0003", "client|bo|name|scrip|x0003|isin name|1", true},
  };
  for (const auto& each : cases) {
    FillRows(grid, {"|||||client|bo|name|scrip|isin|isin name|1|"});
    const std::string text = TidiedCellText(each.col, each.typed);
    EXPECT_TRUE(CommitCellText(grid, 1, each.col, text, each.freeEntry));
    EXPECT_EQ(RowsOf(grid), std::vector{"|||||" + std::string(each.row) + "|"}) << each.typed;
  }
  EXPECT_EQ(grid.ColWidth(kIsinName), 19 * 100 + 200);  // widened by the longest
  Settings = {};  // never loaded: there is no length that a BOID may have
  EXPECT_FALSE(CommitCellText(grid, 1, kBoId, "1", false));
  EXPECT_EQ(platform.TakeMessage().text, "BOID length can not be greater than 0.");
}

}  // namespace
}  // namespace tallyrun::testing
