// Where cells lie, what a point hits, how far a view scrolls and where the keys lead, with no
// window: pixels are 15 twips wide here (96 to the inch).
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/grid/GridGeometry.h"

namespace tallyrun {
namespace {

// Ten columns of 100 pixels in a window that shows three and a half of them, and ten and a half
// rows of 20 pixels below a header of 24.
struct GridGeometryTest : ::testing::Test {
  GridGeometryTest() {
    grid.SetCols(10);
    for (int col = 0; col < 10; ++col) grid.SetColWidth(col, 1500);
    SetDataRows(100);
    grid.SetPageRows(Geometry().PageRows());
  }
  void SetDataRows(int rows) { grid.SetRows(rows + 1); }
  void ScrollTo(const GridCell& cell) {
    grid.SetTopRow(cell.row);
    grid.SetLeftCol(cell.col);
  }
  GridGeometry Geometry() const { return GridGeometry(grid, sizes); }
  GridCell Scroll() const { return {grid.TopRow(), grid.LeftCol()}; }

  GridSizes sizes{350, 234, 96, 20, 24};
  FlexGrid grid;
};

TEST_F(GridGeometryTest, ScrollsUntilTheLastColumnsFillTheWindow) {
  const std::pair<int, int> widthsAndScrolls[] = {{350, 7}, {400, 6}, {5000, 0}, {50, 9}};
  for (const auto& [width, maxLeftCol] : widthsAndScrolls) {
    sizes.clientWidth = width;
    EXPECT_EQ(Geometry().MaxLeftCol(), maxLeftCol) << width;
  }
  sizes.clientHeight = 10;  // not even the header fits
  EXPECT_EQ(Geometry().PageRows(), 1);
  // Twips are thinner than pixels: every column is rounded by itself, so that edges never drift
  // apart from those of a header that is told each column's width.
  for (int col = 0; col < 3; ++col) grid.SetColWidth(col, 1507);
  sizes.dpi = 144;
  EXPECT_EQ(Geometry().ColLeft(3), 3 * 151);
}

TEST_F(GridGeometryTest, FindsTheCellUnderAPoint) {
  const struct {
    GridCell scroll;
    int x, y;
    std::optional<GridCell> at;
    GridCell nearest;
  } cases[] = {{{2, 5}, 100, 24, GridCell{2, 6}, {2, 6}},
               {{2, 5}, 50, 23, {}, {1, 5}},                 // header
               {{2, 5}, 10, 230, GridCell{12, 5}, {12, 5}},  // partly seen
               {{2, 5}, -1, 30, {}, {2, 4}},
               {{12, 8}, 10, 230, {}, {12, 8}},  // below the last row
               {{2, 8}, 200, 30, {}, {2, 9}}};   // right of the last column
  SetDataRows(12);
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    ScrollTo(each.scroll);
    EXPECT_EQ(Geometry().CellAt(each.x, each.y), each.at);
    EXPECT_EQ(Geometry().CellNearest(each.x, each.y), each.nearest);
  }
}

TEST_F(GridGeometryTest, KeysMoveTheCurrentCellAndScrollItIntoView) {
  const struct {
    GridCell from, scrolledTo;
    CaretMove move;
    GridCell to, scroll;
  } cases[] = {{{5, 3}, {1, 2}, CaretMove::Left, {5, 2}, {1, 2}},
               {{5, 2}, {1, 0}, CaretMove::Right, {5, 3}, {1, 1}},
               {{5, 9}, {1, 7}, CaretMove::Right, {5, 9}, {1, 7}},
               {{5, 0}, {5, 0}, CaretMove::Up, {4, 0}, {4, 0}},
               {{10, 0}, {1, 0}, CaretMove::Down, {11, 0}, {2, 0}},
               {{100, 0}, {91, 0}, CaretMove::Down, {100, 0}, {91, 0}},
               {{95, 0}, {91, 0}, CaretMove::PageDown, {100, 0}, {91, 0}},
               {{50, 5}, {45, 4}, CaretMove::SheetStart, {1, 0}, {1, 0}},
               {{50, 5}, {45, 4}, CaretMove::SheetEnd, {100, 9}, {91, 7}},
               {{1, 0}, {60, 0}, CaretMove::Down, {2, 0}, {2, 0}}};
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    for (const bool extend : {false, true}) {
      ScrollTo(each.scrolledTo);
      grid.SetRow(each.from.row);
      grid.SetCol(each.from.col);
      MoveCaret(grid, sizes, each.move, extend);
      EXPECT_EQ((GridCell{grid.Row(), grid.Col()}), extend ? each.from : each.to);
      EXPECT_EQ((GridCell{grid.RowSel(), grid.ColSel()}), each.to);
      EXPECT_EQ(Scroll(), each.scroll);
    }
  }
  // A column wider than the window is shown from its beginning.
  grid.SetColWidth(4, 15 * 1000);
  MakeVisible(grid, sizes, {1, 4});
  EXPECT_EQ(Scroll(), (GridCell{1, 4}));
}

TEST(WheelSteps, KeepsWhatIsLeftForTheNextMessage) {
  const struct {
    std::vector<int> deltas;
    int stepsPerNotch;
    std::vector<int> steps;
  } cases[] = {
      {{120, -120, 240}, 3, {3, -3, 6}}, {{-50, -50, -20}, 1, {0, 0, -1}}, {{120}, 0, {0}}};
  for (const auto& each : cases) {
    WheelSteps wheel;
    std::vector<int> steps;
    for (const int delta : each.deltas) steps.push_back(wheel.Take(delta, each.stepsPerNotch));
    EXPECT_EQ(steps, each.steps);
  }
}

}  // namespace
}  // namespace tallyrun
