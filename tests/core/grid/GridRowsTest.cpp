#include "core/grid/GridRows.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

struct GridRowsTest : ProgramFixture {
  GridRowsTest() { grid.SetCols(3); }
};

TEST_F(GridRowsTest, OneBlankRowIsEmptyAndTwoAreNot) {
  for (const char* row : {"7|  | ", "||\t"}) {
    FillRows(grid, {row});
    EXPECT_EQ(IsGridEmpty(grid), row[0] == '7');
  }
  FillRows(grid, {"||", "||"});
  EXPECT_FALSE(IsGridEmpty(grid));
  FillRows(grid, {"1||"});
  DeleteSelectedRows(grid);
  EXPECT_TRUE(platform.messages.empty());
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
