// Where cells lie, what a point hits, how far a view scrolls and where the keys lead, with no
// window: pixels are 15 twips wide here (96 to the inch).
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/GridGeometry.h"

namespace tallyrun {

std::ostream& operator<<(std::ostream& out, const GridCell& cell) {
  return out << "row " << cell.row << ", col " << cell.col;
}

std::ostream& operator<<(std::ostream& out, const GridRect& rect) {
  return out << rect.left << ',' << rect.top << ' ' << rect.width << 'x' << rect.height;
}

namespace {

// Ten columns of 100 pixels in a window that shows three and a half of them, and ten and a half
// rows of 20 pixels below a header of 24.
class GridGeometryTest : public ::testing::Test {
 protected:
  static constexpr int kCols = 10;

  GridGeometryTest() {
    grid_.SetCols(kCols);
    for (int col = 0; col < kCols; ++col) grid_.SetColWidth(col, 1500);
    SetDataRows(100);
    grid_.SetPageRows(Geometry().PageRows());
  }

  void SetDataRows(int rows) { grid_.SetRows(rows + 1); }
  GridGeometry Geometry() const { return GridGeometry(grid_, sizes_); }
  GridCell Current() const { return {grid_.Row(), grid_.Col()}; }
  GridCell Corner() const { return {grid_.RowSel(), grid_.ColSel()}; }
  GridCell Scroll() const { return {grid_.TopRow(), grid_.LeftCol()}; }

  GridSizes sizes_{350, 234, 96, 20, 24};
  FlexGrid grid_;
};

TEST_F(GridGeometryTest, LaysCellsOutFromTheScrollPosition) {
  EXPECT_EQ(Geometry().CellBounds(1, 0), (GridRect{0, 24, 100, 20}));
  EXPECT_EQ(Geometry().CellBounds(3, 2), (GridRect{200, 64, 100, 20}));
  grid_.SetTopRow(5);
  grid_.SetLeftCol(2);
  EXPECT_EQ(Geometry().CellBounds(5, 2), (GridRect{0, 24, 100, 20}));
  EXPECT_EQ(Geometry().CellBounds(4, 0), (GridRect{-200, 4, 100, 20}));
  EXPECT_EQ(Geometry().ColLeft(kCols), 800);
  // Twips are thinner than pixels: every column is rounded by itself, so that edges never drift
  // apart from those of a header that is told each column's width.
  grid_.SetLeftCol(0);
  for (int col = 0; col < 3; ++col) grid_.SetColWidth(col, 1507);
  sizes_.dpi = 144;
  EXPECT_EQ(Geometry().ColPixels(0), 151);
  EXPECT_EQ(Geometry().ColLeft(3), 453);
}

TEST_F(GridGeometryTest, KeepsFarAwayCellsInsideAnInt) {
  sizes_.rowHeight = 100'000'000;
  for (int col = 0; col < kCols; ++col) grid_.SetColWidth(col, 2'000'000'000);
  EXPECT_GT(Geometry().RowTop(100), 1'000'000);
  EXPECT_GT(Geometry().ColLeft(kCols), 1'000'000);
  EXPECT_EQ(Geometry().VisibleCols().last, 0);
  EXPECT_EQ(Geometry().MaxLeftCol(), kCols - 1);
  MakeVisible(grid_, sizes_, {100, kCols - 1});
  EXPECT_EQ(Scroll(), (GridCell{91, kCols - 1}));
  EXPECT_LT(Geometry().RowTop(1), -1'000'000);
  EXPECT_LT(Geometry().ColLeft(0), -1'000'000);
}

TEST_F(GridGeometryTest, CountsThePartlySeenAmongTheVisible) {
  EXPECT_EQ(Geometry().PageRows(), 10);
  EXPECT_EQ(Geometry().VisibleRows().first, 1);
  EXPECT_EQ(Geometry().VisibleRows().last, 11);
  EXPECT_EQ(Geometry().VisibleCols().last, 3);
  grid_.SetTopRow(91);
  EXPECT_EQ(Geometry().VisibleRows().last, 100);
  SetDataRows(3);
  EXPECT_EQ(Geometry().VisibleRows().last, 3);
  SetDataRows(0);
  EXPECT_LT(Geometry().VisibleRows().last, Geometry().VisibleRows().first);
  sizes_.clientHeight = 10;  // not even the header fits
  EXPECT_EQ(Geometry().PageRows(), 1);
  EXPECT_LT(Geometry().VisibleRows().last, Geometry().VisibleRows().first);
}

TEST_F(GridGeometryTest, FindsTheCellUnderAPoint) {
  struct Case {
    const char* what;
    int x, y;
    std::optional<GridCell> at;
    GridCell nearest;
  };
  SetDataRows(12);
  grid_.SetTopRow(2);
  grid_.SetLeftCol(5);
  const std::vector<Case> cases = {
      {"first pixel of a cell", 100, 24, GridCell{2, 6}, {2, 6}},
      {"last pixel of a cell", 99, 43, GridCell{2, 5}, {2, 5}},
      {"header", 50, 23, std::nullopt, {1, 5}},
      {"above the window", 50, -500, std::nullopt, {1, 5}},
      {"partly seen row", 10, 230, GridCell{12, 5}, {12, 5}},
      {"below the window", 10, 234, std::nullopt, {12, 5}},
      {"left of the window", -1, 30, std::nullopt, {2, 4}},
      {"right of the window", 350, 30, std::nullopt, {2, 9}},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(Geometry().CellAt(each.x, each.y), each.at) << each.what;
    EXPECT_EQ(Geometry().CellNearest(each.x, each.y), each.nearest) << each.what;
  }
  SetDataRows(2);
  grid_.SetLeftCol(8);
  EXPECT_EQ(Geometry().CellAt(10, 70), std::nullopt) << "below the last row";
  EXPECT_EQ(Geometry().CellNearest(10, 70), (GridCell{2, 8}));
  EXPECT_EQ(Geometry().CellAt(200, 30), std::nullopt) << "right of the last column";
  EXPECT_EQ(Geometry().CellNearest(200, 30), (GridCell{1, 9}));
  SetDataRows(0);
  EXPECT_EQ(Geometry().CellAt(10, 30), std::nullopt);
  EXPECT_EQ(Geometry().CellNearest(10, 30), std::nullopt);
}

TEST_F(GridGeometryTest, ScrollsSidewaysUntilTheLastColumnsFillTheWindow) {
  EXPECT_EQ(Geometry().MaxLeftCol(), 7);
  sizes_.clientWidth = 400;
  EXPECT_EQ(Geometry().MaxLeftCol(), 6);
  sizes_.clientWidth = 5000;
  EXPECT_EQ(Geometry().MaxLeftCol(), 0);
  sizes_.clientWidth = 50;
  EXPECT_EQ(Geometry().MaxLeftCol(), 9);
}

TEST_F(GridGeometryTest, OnePaintReadsAsManyCellsAsTheWindowShows) {
  const GridRect all{0, 0, sizes_.clientWidth, sizes_.clientHeight};
  const auto cellsRead = [&](const GridRect& area) {
    int cells = 0;
    Geometry().ForEachCell(area, [&](int row, int col, const GridRect& bounds) {
      EXPECT_EQ(bounds, Geometry().CellBounds(row, col));
      EXPECT_FALSE(grid_.Cell(row, col) != CellValue::Empty);
      ++cells;
    });
    return cells;
  };
  EXPECT_EQ(cellsRead(all), 11 * 4);
  SetDataRows(100'000);
  EXPECT_EQ(cellsRead(all), 11 * 4);
  grid_.SetTopRow(50'000);
  grid_.SetLeftCol(3);
  EXPECT_EQ(cellsRead(all), 11 * 4);
  EXPECT_EQ(cellsRead({150, 30, 60, 20}), 2 * 2) << "only what is dirty";
  EXPECT_EQ(cellsRead({0, 0, 350, 24}), 0) << "the header is no cell";
  grid_.SetTopRow(100'000);
  grid_.SetLeftCol(8);
  EXPECT_EQ(cellsRead(all), 10 * 2);
}

TEST_F(GridGeometryTest, KeysMoveTheCurrentCellAndScrollItIntoView) {
  struct Case {
    const char* what;
    GridCell from, scrolledTo;
    CaretMove move;
    GridCell to, scroll;
  };
  const std::vector<Case> cases = {
      {"left", {5, 3}, {1, 2}, CaretMove::Left, {5, 2}, {1, 2}},
      {"left out of sight", {5, 3}, {1, 3}, CaretMove::Left, {5, 2}, {1, 2}},
      {"left at the edge", {5, 0}, {1, 0}, CaretMove::Left, {5, 0}, {1, 0}},
      {"right into a column partly seen", {5, 2}, {1, 0}, CaretMove::Right, {5, 3}, {1, 1}},
      {"right at the edge", {5, 9}, {1, 7}, CaretMove::Right, {5, 9}, {1, 7}},
      {"up", {5, 0}, {5, 0}, CaretMove::Up, {4, 0}, {4, 0}},
      {"up at the top", {1, 0}, {1, 0}, CaretMove::Up, {1, 0}, {1, 0}},
      {"down into a row partly seen", {10, 0}, {1, 0}, CaretMove::Down, {11, 0}, {2, 0}},
      {"down at the bottom", {100, 0}, {91, 0}, CaretMove::Down, {100, 0}, {91, 0}},
      {"page down", {1, 0}, {1, 0}, CaretMove::PageDown, {11, 0}, {2, 0}},
      {"page down at the bottom", {95, 0}, {91, 0}, CaretMove::PageDown, {100, 0}, {91, 0}},
      {"page up", {95, 0}, {91, 0}, CaretMove::PageUp, {85, 0}, {85, 0}},
      {"page up at the top", {5, 0}, {1, 0}, CaretMove::PageUp, {1, 0}, {1, 0}},
      {"row start", {5, 9}, {1, 7}, CaretMove::RowStart, {5, 0}, {1, 0}},
      {"row end", {5, 0}, {1, 0}, CaretMove::RowEnd, {5, 9}, {1, 7}},
      {"sheet start", {50, 5}, {45, 4}, CaretMove::SheetStart, {1, 0}, {1, 0}},
      {"sheet end", {50, 5}, {45, 4}, CaretMove::SheetEnd, {100, 9}, {91, 7}},
      {"from a row scrolled out", {1, 0}, {60, 0}, CaretMove::Down, {2, 0}, {2, 0}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    for (const bool extend : {false, true}) {
      grid_.SetTopRow(each.scrolledTo.row);
      grid_.SetLeftCol(each.scrolledTo.col);
      grid_.SetRow(each.from.row);
      grid_.SetCol(each.from.col);
      MoveCaret(grid_, sizes_, each.move, extend);
      EXPECT_EQ(Current(), extend ? each.from : each.to);
      EXPECT_EQ(Corner(), each.to);
      EXPECT_EQ(Scroll(), each.scroll);
    }
  }
}

TEST_F(GridGeometryTest, ExtendingGoesOnFromTheBlocksCorner) {
  grid_.SetRow(5);
  grid_.SetCol(3);
  MoveCaret(grid_, sizes_, CaretMove::Up, true);
  MoveCaret(grid_, sizes_, CaretMove::Up, true);
  MoveCaret(grid_, sizes_, CaretMove::Left, true);
  const GridBlock block = SelectedBlock(grid_);
  EXPECT_EQ(Current(), (GridCell{5, 3}));
  EXPECT_EQ(std::make_pair(block.top, block.bottom), std::make_pair(3, 5));
  EXPECT_EQ(std::make_pair(block.left, block.right), std::make_pair(2, 3));
  EXPECT_TRUE(block.Contains(4, 2));
  EXPECT_FALSE(block.Contains(4, 4));
  MoveCaret(grid_, sizes_, CaretMove::Down, false);
  EXPECT_EQ(Current(), (GridCell{6, 3}));
  EXPECT_TRUE(SelectedBlock(grid_).IsSingleCell());
}

TEST_F(GridGeometryTest, KeysDoNothingWithoutADataRow) {
  SetDataRows(0);
  MoveCaret(grid_, sizes_, CaretMove::SheetEnd, false);
  MoveCaret(grid_, sizes_, CaretMove::Down, true);
  EXPECT_EQ(Current(), (GridCell{0, 0}));
  EXPECT_EQ(Corner(), (GridCell{0, 0}));
}

TEST_F(GridGeometryTest, ShowsTheBeginningOfAColumnWiderThanTheWindow) {
  grid_.SetColWidth(4, 15 * 1000);
  MakeVisible(grid_, sizes_, {1, 4});
  EXPECT_EQ(Scroll(), (GridCell{1, 4}));
}

TEST(WheelSteps, KeepsWhatIsLeftForTheNextMessage) {
  struct Case {
    const char* what;
    std::vector<int> deltas;
    int stepsPerNotch;
    std::vector<int> steps;
  };
  const std::vector<Case> cases = {
      {"whole notches", {120, -120, 240}, 3, {3, -3, 6}},
      {"a fine wheel", {30, 30, 30, 30}, 3, {0, 1, 1, 1}},
      {"a fine wheel, backwards", {-50, -50, -20}, 1, {0, 0, -1}},
      {"turned round half-way", {100, -20, -100}, 1, {0, 0, -1}},
      {"scrolling turned off", {120, 120}, 0, {0, 0}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    WheelSteps wheel;
    std::vector<int> steps;
    for (const int delta : each.deltas) steps.push_back(wheel.Take(delta, each.stepsPerNotch));
    EXPECT_EQ(steps, each.steps);
  }
}

}  // namespace
}  // namespace tallyrun
