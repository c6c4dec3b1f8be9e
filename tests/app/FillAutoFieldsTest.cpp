#include <gmock/gmock.h>

#include "app/FillAutoFields.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

class AutoFillTest : public EntrySheetFixture {
 protected:
  static std::string Typed(std::string_view tradeDate, std::string_view client,
                           std::string_view scrip = "BRAVOB") {
    return EntryCells({{EntryColumn::kTradeDate, tradeDate},
                       {EntryColumn::kClientCode, client},
                       {EntryColumn::kScripId, scrip},
                       {EntryColumn::kQuantity, "10"}});
  }
};

TEST_F(AutoFillTest, FillsEverythingThatFollowsFromTheTypedCells) {
  FillRows(grid, {Typed("05-Jan-2010", "C2", "bravo")});
  FillAutoFields(grid, {2010, 1, 7});
  EXPECT_THAT(RowsOf(grid),
              ElementsAre("1|123456|1201950000009999|05-Jan-2010|07-Jan-2010|C2|1201950000000002|"
                          "BEN BIRCH|bravo|KX0002000029|BRAVO BANK LTD|10|I1234560501101"));
  EXPECT_EQ(grid.ColWidth(EntryColumn::kClearingBoid), 16 * 100 + 200);
}

TEST_F(AutoFillTest, UnknownCodesClearWhatStoodThere) {
  FillRows(grid, {"1|||05-Jan-2010||NOBODY|1201950000000001||NOTHING|KX0001000011|||kept"});
  FillAutoFields(grid, {2010, 1, 7});
  EXPECT_THAT(RowsOf(grid), ElementsAre("1|123456|1201950000009999|05-Jan-2010|07-Jan-2010|NOBODY||"
                                        "BO NAME NOT FOUND|NOTHING||ISIN NAME NOT FOUND||kept"));
}

TEST_F(AutoFillTest, GroupNumbersRiseAtEveryChangeOfAccountInRowOrder) {
  const std::string day = "5-3-2010";
  FillRows(grid, {Typed(day, "C1"), Typed(day, "C1"), Typed("6-3-2010", "C1"), Typed(day, "C2"),
                  Typed(day, "C2"), Typed(day, "C1")});
  EntryMode = kPayOut;
  FillAutoFields(grid, {2010, 3, 8});
  EXPECT_THAT(ColumnOf(grid, EntryColumn::kInternalRef),
              ElementsAre("O1234560503101", "O1234560503101", "O1234560603101", "O1234560503102",
                          "O1234560503102", "O1234560503103"));
}

// A row that takes no number still stands above the next one and is compared with it.
TEST_F(AutoFillTest, RowsWithoutDateOrAccountTakeNoNumberButAreComparedWith) {
  const std::string day = "5-3-2010";
  FillRows(grid, {Typed(day, "C1"), Typed("", "C2"), Typed(day, "C2"), Typed(day, "nobody"),
                  Typed(day, "C2")});
  FillAutoFields(grid, {2010, 3, 8});
  EXPECT_THAT(ColumnOf(grid, EntryColumn::kInternalRef),
              ElementsAre("I1234560503101", "", "I1234560503101", "", "I1234560503102"));
}

TEST_F(AutoFillTest, ABadTradeDateEndsThePassAtItsRow) {
  FillRows(grid, {Typed("5-3-2010", "C1"), Typed("soon", "C2"), Typed("5-3-2010", "C3")});
  EXPECT_EQ(ErrorOf([&] { FillAutoFields(grid, {2010, 3, 8}); }), "Type mismatch");
  EXPECT_THAT(ColumnOf(grid, EntryColumn::kInternalRef), ElementsAre("I1234560503101", "", ""));
  EXPECT_THAT(ColumnOf(grid, EntryColumn::kBoName), ElementsAre("ANN ALDER", "BEN BIRCH", ""));
}

}  // namespace
}  // namespace tallyrun::testing
