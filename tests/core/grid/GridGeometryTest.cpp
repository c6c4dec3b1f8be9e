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
  static constexpr int kCols = 10;

  GridGeometryTest() {
    grid.SetCols(kCols);
    for (int col = 0; col < kCols; ++col) grid.SetColWidth(col, 1500);
    SetDataRows(100);
    grid.SetPageRows(Geometry().PageRows());
  }
  void SetDataRows(int rows) { grid.SetRows(rows + 1); }
  void ScrollTo(const GridCell& cell) {
    grid.SetTopRow(cell.row);
    grid.SetLeftCol(cell.col);
  }
  void SetCurrent(const GridCell& cell) {
    grid.SetRow(cell.row);
    grid.SetCol(cell.col);
  }
  GridGeometry Geometry() const { return GridGeometry(grid, sizes); }
  GridCell Current() const { return {grid.Row(), grid.Col()}; }
  GridCell Corner() const { return {grid.RowSel(), grid.ColSel()}; }
  GridCell Scroll() const { return {grid.TopRow(), grid.LeftCol()}; }

  GridSizes sizes{350, 234, 96, 20, 24};
  FlexGrid grid;
};

TEST_F(GridGeometryTest, LaysCellsOutFromTheScrollPosition) {
  ScrollTo({5, 2});
  EXPECT_EQ(Geometry().CellBounds(5, 2), (GridRect{0, 24, 100, 20}));
  EXPECT_EQ(Geometry().CellBounds(4, 0), (GridRect{-200, 4, 100, 20}));
  EXPECT_EQ(Geometry().ColLeft(kCols), 800);
  // Twips are thinner than pixels: every column is rounded by itself, so that edges never drift
  // apart from those of a header that is told each column's width.
  grid.SetLeftCol(0);
  for (int col = 0; col < 3; ++col) grid.SetColWidth(col, 1507);
  sizes.dpi = 144;
  EXPECT_EQ(Geometry().ColLeft(3), 3 * 151);
}

TEST_F(GridGeometryTest, CountsThePartlySeenAmongTheVisible) {
  EXPECT_EQ(Geometry().PageRows(), 10);
  EXPECT_EQ(Geometry().VisibleRows().last, 11);
  EXPECT_EQ(Geometry().VisibleCols().last, 3);
  grid.SetTopRow(91);
  EXPECT_EQ(Geometry().VisibleRows().last, 100);
  SetDataRows(0);
  EXPECT_LT(Geometry().VisibleRows().last, Geometry().VisibleRows().first);
  sizes.clientHeight = 10;  // not even the header fits
  EXPECT_EQ(Geometry().PageRows(), 1);
  const std::pair<int, int> widthsAndScrolls[] = {{350, 7}, {400, 6}, {5000, 0}, {50, 9}};
  for (const auto& [width, maxLeftCol] : widthsAndScrolls) {
    sizes.clientWidth = width;
    EXPECT_EQ(Geometry().MaxLeftCol(), maxLeftCol) << width;
  }
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
               {{2, 5}, 350, 30, {}, {2, 9}},
               {{12, 8}, 10, 230, {}, {12, 8}},  // below the last row
               {{2, 8}, 200, 30, {}, {2, 9}}};   // right of the last column
  SetDataRows(12);
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    ScrollTo(each.scroll);
    EXPECT_EQ(Geometry().CellAt(each.x, each.y), each.at);
    EXPECT_EQ(Geometry().CellNearest(each.x, each.y), each.nearest);
  }
  SetDataRows(0);
  EXPECT_EQ(Geometry().CellNearest(10, 30), std::nullopt);
}

TEST_F(GridGeometryTest, OnePaintReadsTheDirtyCellsInSightAlone) {
  const auto cellsRead = [&](const GridRect& area) {
    int cells = 0;
    Geometry().ForEachCell(area, [&](int row, int col, const GridRect& bounds) {
      EXPECT_EQ(bounds, Geometry().CellBounds(row, col));
      ++cells;
    });
    return cells;
  };
  ScrollTo({50, 3});
  EXPECT_EQ(cellsRead({0, 0, sizes.clientWidth, sizes.clientHeight}), 11 * 4);
  EXPECT_EQ(cellsRead({150, 30, 60, 20}), 2 * 2);
  EXPECT_EQ(cellsRead(Geometry().CellBounds(52, 4)), 1);
  EXPECT_EQ(cellsRead({0, 0, 350, 24}), 0) << "the header is no cell";
}

TEST_F(GridGeometryTest, KeysMoveTheCurrentCellAndScrollItIntoView) {
  const struct {
    GridCell from, scrolledTo;
    CaretMove move;
    GridCell to, scroll;
  } cases[] = {{{5, 3}, {1, 2}, CaretMove::Left, {5, 2}, {1, 2}},
               {{5, 3}, {1, 3}, CaretMove::Left, {5, 2}, {1, 2}},
               {{5, 2}, {1, 0}, CaretMove::Right, {5, 3}, {1, 1}},
               {{5, 9}, {1, 7}, CaretMove::Right, {5, 9}, {1, 7}},
               {{5, 0}, {5, 0}, CaretMove::Up, {4, 0}, {4, 0}},
               {{10, 0}, {1, 0}, CaretMove::Down, {11, 0}, {2, 0}},
               {{100, 0}, {91, 0}, CaretMove::Down, {100, 0}, {91, 0}},
               {{1, 0}, {1, 0}, CaretMove::PageDown, {11, 0}, {2, 0}},
               {{95, 0}, {91, 0}, CaretMove::PageDown, {100, 0}, {91, 0}},
               {{50, 5}, {45, 4}, CaretMove::SheetStart, {1, 0}, {1, 0}},
               {{50, 5}, {45, 4}, CaretMove::SheetEnd, {100, 9}, {91, 7}},
               {{1, 0}, {60, 0}, CaretMove::Down, {2, 0}, {2, 0}}};
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    for (const bool extend : {false, true}) {
      ScrollTo(each.scrolledTo);
      SetCurrent(each.from);
      MoveCaret(grid, sizes, each.move, extend);
      EXPECT_EQ(Current(), extend ? each.from : each.to);
      EXPECT_EQ(Corner(), each.to);
      EXPECT_EQ(Scroll(), each.scroll);
    }
  }
  SetDataRows(0);
  MoveCaret(grid, sizes, CaretMove::Down, true);
  EXPECT_EQ(Corner(), (GridCell{0, 0}));
}

TEST_F(GridGeometryTest, AColumnWiderThanTheWindowIsShownFromItsBeginning) {
  grid.SetColWidth(4, 15 * 1000);
  MakeVisible(grid, sizes, {1, 4});
  EXPECT_EQ(Scroll(), (GridCell{1, 4}));
}

TEST(WheelSteps, KeepsWhatIsLeftForTheNextMessage) {
  const struct {
    std::vector<int> deltas;
    int stepsPerNotch;
    std::vector<int> steps;
  } cases[] = {{{120, -120, 240}, 3, {3, -3, 6}},
               {{30, 30, 30, 30}, 3, {0, 1, 1, 1}},
               {{-50, -50, -20}, 1, {0, 0, -1}},
               {{100, -20, -100}, 1, {0, 0, -1}},
               {{120, 120}, 0, {0, 0}}};
  for (const auto& each : cases) {
    WheelSteps wheel;
    std::vector<int> steps;
    for (const int delta : each.deltas) steps.push_back(wheel.Take(delta, each.stepsPerNotch));
    EXPECT_EQ(steps, each.steps);
  }
}

}  // namespace
}  // namespace tallyrun
