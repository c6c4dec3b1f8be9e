#include <gmock/gmock.h>

#include "core/GridRows.h"
#include "tests/support/GridText.h"
#include "tests/support/RecordingPlatform.h"

namespace tallyrun {
namespace {

using ::testing::ElementsAre;
using testing::FillRows;
using testing::RecordingPlatform;
using testing::RowsOf;

class GridRowsTest : public ::testing::Test {
 protected:
  GridRowsTest() {
    grid.SetCols(3);
    FillRows(grid, {"1||"});
  }

  FlexGrid grid;
  RecordingPlatform platform;
};

TEST_F(GridRowsTest, OneBlankRowIsEmptyAndTwoAreNot) {
  EXPECT_TRUE(IsGridEmpty(grid));
  FillRows(grid, {"7|  | "});  // the serial number is not looked at, blanks do not count
  EXPECT_TRUE(IsGridEmpty(grid));
  FillRows(grid, {"||\t"});
  EXPECT_FALSE(IsGridEmpty(grid));
  FillRows(grid, {"||", "||"});
  EXPECT_FALSE(IsGridEmpty(grid));
  grid.SetRows(1);
  EXPECT_TRUE(IsGridEmpty(grid));
}

TEST_F(GridRowsTest, AnAddedRowIsNumberedCurrentAndOnTop) {
  grid.SetCol(2);
  AddEntryRow(grid);
  EXPECT_THAT(RowsOf(grid), ElementsAre("1||", "2||"));
  EXPECT_EQ(grid.Row(), 2);
  EXPECT_EQ(grid.Col(), 1);
  EXPECT_EQ(grid.RowSel(), 2);
  EXPECT_TRUE(grid.IsRowVisible(2));
  grid.SetRows(1);
  AddEntryRow(grid);
  EXPECT_THAT(RowsOf(grid), ElementsAre("1||"));
}

TEST_F(GridRowsTest, DeletingAsksFirstAndNotAtAllOnAnEmptyGrid) {
  DeleteSelectedRows(grid);
  EXPECT_TRUE(platform.messages.empty());

  FillRows(grid, {"1|a|", "2|b|"});
  grid.SetRow(1);
  DeleteSelectedRows(grid);
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"Are you sure to delete the selected record(s)?", "Delete Confirmation",
                     MessageIcon::Critical, MessageButtons::YesNo}));
  EXPECT_THAT(RowsOf(grid), ElementsAre("1|a|", "2|b|"));
}

struct DeleteCase {
  const char* name;
  std::vector<std::string> rows;
  int row;
  int rowSel;
  std::vector<std::string> left;
};

TEST_F(GridRowsTest, DeletingKeepsTheOtherRowsInOrderAndNumbered) {
  const DeleteCase cases[] = {
      {"the only row is blanked, its number kept", {"1|a|b"}, 1, 1, {"1||"}},
      {"all rows, downward", {"1|a|", "2|b|", "3|c|"}, 1, 3, {"1||"}},
      {"all rows, upward", {"1|a|", "2|b|", "3|c|"}, 3, 1, {"1||"}},
      {"to the last row", {"1|a|", "2|b|", "3|c|"}, 2, 3, {"1|a|"}},
      {"a middle block", {"1|a|", "2|b|", "3|c|", "4|d|", "5|e|"}, 2, 3, {"1|a|", "2|d|", "3|e|"}},
      {"a middle block, upward, longer than the rest",
       {"1|a|", "2|b|", "3|c|", "4|d|", "5|e|"},
       4,
       2,
       {"1|a|", "2|e|"}},
      {"the first row", {"1|a|", "2|b|"}, 1, 1, {"1|b|"}},
  };
  for (const DeleteCase& each : cases) {
    SCOPED_TRACE(each.name);
    FillRows(grid, each.rows);
    grid.SetRow(each.row);
    grid.SetRowSel(each.rowSel);
    platform.answers = {MessageAnswer::Yes};
    DeleteSelectedRows(grid);
    EXPECT_EQ(RowsOf(grid), each.left);
    EXPECT_LT(grid.Row(), grid.Rows());
  }
}

TEST_F(GridRowsTest, ClearingLeavesOneBlankNumberedRow) {
  FillRows(grid, {"5|a|b", "6|c|d"});
  ClearEntryGrid(grid);
  EXPECT_THAT(RowsOf(grid), ElementsAre("1||"));
}

TEST_F(GridRowsTest, ColumnsOnlyGrow) {
  grid.SetMeasurer(TextMeasurer::FixedWidth(100));
  grid.SetColWidth(1, 500);
  grid.SetText(1, 1, "abc");
  FitColumnWidth(grid, 1, 1);
  EXPECT_EQ(grid.ColWidth(1), 500);
  grid.SetText(1, 1, "abcd");
  FitColumnWidth(grid, 1, 1);
  EXPECT_EQ(grid.ColWidth(1), 600);
}

}  // namespace
}  // namespace tallyrun
