#include <gmock/gmock.h>

#include "app/FillAutoFields.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

using AutoFillTest = EntrySheetFixture;

std::string Typed(const std::string& tradeDate, const std::string& client) {
  return "|||" + tradeDate + "||" + client + "|||bravo|||10|";
}

TEST_F(AutoFillTest, FillsWhatFollowsFromTheTypedCellsAndClearsWhatAnUnknownCodeHad) {
  FillRows(grid, {Typed("05-Jan-2010", "C2"),
                  "2|||05-Jan-2010||NOBODY|1201950000000001||NOTHING|KX0001000011|||kept"});
  FillAutoFields(grid, {2010, 1, 7});
  EXPECT_THAT(RowsOf(grid),
              ElementsAre("1|123456|1201950000009999|05-Jan-2010|07-Jan-2010|C2|1201950000000002|"
                          "BEN BIRCH|bravo|KX0002000029|BRAVO BANK LTD|10|I1234560501101",
                          "2|123456|1201950000009999|05-Jan-2010|07-Jan-2010|NOBODY||"
                          "BO NAME NOT FOUND|NOTHING||ISIN NAME NOT FOUND||kept"));
  EXPECT_EQ(grid.ColWidth(EntryColumn::kClearingBoid), 16 * 100 + 200);
}

// A row without date or account takes no number, but the next one is compared with it.
TEST_F(AutoFillTest, GroupNumbersRiseAtEveryChangeOfAccountUntilABadDateEndsThePass) {
  const std::string day = "5-3-2010";
  EntryMode = kPayOut;
  FillRows(grid, {Typed(day, "C1"), Typed(day, "C1"), Typed("6-3-2010", "C1"), Typed(day, "C2"),
                  Typed("", "C1"), Typed(day, "C1"), Typed(day, "nobody"), Typed(day, "C1"),
                  Typed("soon", "C2"), Typed(day, "C3")});
  EXPECT_EQ(ErrorOf([&] { FillAutoFields(grid, {2010, 3, 8}); }), "Type mismatch");
  EXPECT_THAT(ColumnOf(grid, EntryColumn::kInternalRef),
              ElementsAre("O1234560503101", "O1234560503101", "O1234560603101", "O1234560503102",
                          "", "O1234560503102", "", "O1234560503103", "", ""));
  EXPECT_EQ(grid.Text(9, EntryColumn::kBoName), "BEN BIRCH");
  EXPECT_EQ(grid.Text(10, EntryColumn::kBoName), "");
}

}  // namespace
}  // namespace tallyrun::testing
