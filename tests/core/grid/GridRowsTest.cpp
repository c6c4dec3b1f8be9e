#include <gmock/gmock.h>

#include "core/grid/GridRows.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

struct GridRowsTest : ProgramFixture {
  GridRowsTest() { grid.SetCols(3); }
};

TEST_F(GridRowsTest, OneBlankRowIsEmptyAndTwoAreNot) {
  const std::pair<std::vector<std::string>, bool> cases[] = {
      {{}, true}, {{"7|  | "}, true}, {{"||\t"}, false}, {{"||", "||"}, false}};
  for (const auto& [rows, empty] : cases) {
    FillRows(grid, rows);
    EXPECT_EQ(IsGridEmpty(grid), empty) << ::testing::PrintToString(rows);
  }
  FillRows(grid, {"1||"});
  DeleteSelectedRows(grid);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(GridRowsTest, AnAddedRowIsNumberedCurrentAndOnTop) {
  for (int row = 1; row <= 2; ++row) AddEntryRow(grid);
  EXPECT_THAT(RowsOf(grid), ElementsAre("1||", "2||"));
  EXPECT_EQ(std::vector({grid.Row(), grid.Col(), grid.RowSel()}), std::vector({2, 1, 2}));
  EXPECT_TRUE(grid.IsRowVisible(2));
  grid.SetText(2, 2, "x");
  ClearEntryGrid(grid);
  EXPECT_THAT(RowsOf(grid), ElementsAre("1||"));
}

TEST_F(GridRowsTest, DeletingAsksFirstAndKeepsTheOtherRowsInOrderAndNumbered) {
  const std::vector<std::string> rows = {"1|a|", "2|b|", "3|c|", "4|d|", "5|e|"};
  FillRows(grid, rows);
  DeleteSelectedRows(grid);
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"Are you sure to delete the selected record(s)?", "Delete Confirmation",
                     MessageIcon::Critical, MessageButtons::YesNo}));
  EXPECT_EQ(RowsOf(grid), rows);
  const struct {
    int row, rowSel;
    std::vector<std::string> left;
  } cases[] = {{1, 5, {"1||"}},
               {5, 1, {"1||"}},
               {4, 5, {"1|a|", "2|b|", "3|c|"}},
               {4, 2, {"1|a|", "2|e|"}},
               {1, 1, {"1|b|", "2|c|", "3|d|", "4|e|"}}};
  for (const auto& each : cases) {
    FillRows(grid, rows);
    grid.SetRow(each.row);
    grid.SetRowSel(each.rowSel);
    platform.answers = {MessageAnswer::Yes};
    DeleteSelectedRows(grid);
    EXPECT_EQ(RowsOf(grid), each.left);
    EXPECT_LT(grid.Row(), grid.Rows());
  }
}

}  // namespace
}  // namespace tallyrun::testing
