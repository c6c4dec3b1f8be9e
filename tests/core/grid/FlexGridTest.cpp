// The grid's data: what a cell keeps, and where the current cell, the selection and the scroll
// position come to stand when rows go.
#include <gtest/gtest.h>

#include "core/grid/FlexGrid.h"
#include "core/text/Split.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

using Texts = std::vector<std::string>;

// Rows 1 to `dataRows`, each cell telling where it came from.
void Fill(FlexGrid& grid, int dataRows, int cols) {
  grid.SetRows(dataRows + 1);
  grid.SetCols(cols);
  for (int row = 0; row <= dataRows; ++row) {
    for (int col = 0; col < cols; ++col) {
      grid.SetText(row, col, "r" + std::to_string(row) + "c" + std::to_string(col));
    }
  }
}

// Row, column, and the selection's other corner.
using Corners = std::vector<int>;
Corners Selection(const FlexGrid& grid) {
  return {grid.Row(), grid.Col(), grid.RowSel(), grid.ColSel()};
}

TEST(FlexGrid, GivesBackEveryTextByteForByte) {
  FlexGrid grid;
  Texts texts = {std::string("a\0b", 3), std::string(1, '\0'), std::string(300'000, 'y')};
  for (const auto text :
       Split("|0|00|007|7|999999999|1000000000|4294967296|-5| 12|12\r|\xE9", "|")) {
    texts.emplace_back(text);
  }
  grid.SetRows(static_cast<int>(texts.size()) + 1);
  // Twice, so that the second round meets texts that are already stored.
  for (int round = 0; round < 2; ++round) {
    for (int row = 1; row < grid.Rows(); ++row) {
      grid.SetText(row, 0, texts[static_cast<std::size_t>(row) - 1]);
      for (int other = 1; other < row; ++other) EXPECT_NE(grid.Cell(row, 0), grid.Cell(other, 0));
    }
    EXPECT_EQ(ColumnOf(grid, 0), texts);
  }
}

TEST(FlexGrid, TheSelectionCollapsesAndStaysInsideAShrinkingGrid) {
  FlexGrid grid;
  Fill(grid, 5, 4);
  const auto select = [&](int row, int col, int rowSel, int colSel) {
    grid.SetRow(row);
    grid.SetCol(col);
    grid.SetRowSel(rowSel);
    grid.SetColSel(colSel);
  };
  select(3, 2, 1, 3);
  grid.SetCol(1);
  EXPECT_EQ(Selection(grid), (Corners{3, 1, 3, 1}));
  grid.SelectRow(4);
  EXPECT_EQ(Selection(grid), (Corners{4, 0, 4, 3}));
  select(5, 3, 2, 1);
  grid.SetRows(4);
  grid.SetCols(3);
  EXPECT_EQ(Selection(grid), (Corners{3, 2, 2, 1}));
  grid.SetRows(1);
  grid.SetRows(3);  // the captions are no place for the current cell
  EXPECT_EQ(Selection(grid), (Corners{1, 2, 1, 1}));
}

TEST(FlexGrid, RemovedRowsTakeTheSelectionAndTheViewAlong) {
  const struct {
    int row, rowSel, topRow, first, last, newRow, newRowSel, newTopRow;
  } cases[] = {{5, 7, 4, 5, 7, 5, 5, 4},         {7, 5, 4, 5, 7, 5, 5, 4},  // selected upward
               {9, 10, 8, 2, 3, 7, 8, 6},        {2, 3, 1, 10, 12, 2, 3, 1},
               {9, 9, 8, 6, 8, 6, 6, 6},  // the first visible row among others
               {19, 19, 15, 15, 19, 14, 14, 10}, {3, 9, 5, 1, 19, 0, 0, 1}};
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    FlexGrid grid;
    Fill(grid, 19, 1);
    grid.SetPageRows(5);
    grid.SetTopRow(each.topRow);
    grid.SetRow(each.row);
    grid.SetRowSel(each.rowSel);
    Texts expected = ColumnOf(grid, 0);
    expected.erase(expected.begin() + each.first - 1, expected.begin() + each.last);
    grid.RemoveRows(each.first, each.last);
    EXPECT_EQ(ColumnOf(grid, 0), expected);
    EXPECT_EQ(Selection(grid), (Corners{each.newRow, 0, each.newRowSel, 0}));
    EXPECT_EQ(grid.TopRow(), each.newTopRow);
  }
}

TEST(FlexGrid, ScrollsNoFurtherThanTheRowThatFillsTheWindow) {
  FlexGrid grid;
  Fill(grid, 100, 3);
  grid.SetPageRows(10);
  grid.SetTopRow(1000);
  EXPECT_EQ(grid.TopRow(), 91);
  EXPECT_TRUE(grid.IsRowVisible(100));
  grid.SetPageRows(20);
  EXPECT_EQ(grid.TopRow(), 81);
  grid.SetRows(50);
  EXPECT_EQ(grid.TopRow(), 30);
  grid.SetTopRow(-3);
  EXPECT_EQ(grid.TopRow(), 1);
  grid.SetLeftCol(7);
  EXPECT_EQ(grid.LeftCol(), 2);
  grid.SetCols(2);
  EXPECT_EQ(grid.LeftCol(), 1);
}

TEST(FlexGrid, ForgetsTheTextsOfALargeSheetAndKeepsThoseThatStay) {
  FlexGrid grid;
  Fill(grid, 20'000, 2);
  grid.SetText(2, 1, std::string(70'000, 'x'));
  while (grid.Rows() > 3) grid.SetRows(grid.Rows() - 1);  // as merging rows upward does
  EXPECT_EQ(grid.Text(0, 1), "r0c1");
  EXPECT_EQ(grid.Text(2, 1), std::string(70'000, 'x'));
  grid.SetCols(1);
  grid.SetCols(2);
  grid.SetRows(4);
  EXPECT_EQ(RowsOf(grid), (Texts{"r1c0|", "r2c0|", "|"})) << "what comes back is empty";
  Fill(grid, 30'000, 2);  // into the room of the first, and beyond
  EXPECT_EQ(grid.Text(29'999, 1), "r29999c1");
}

}  // namespace
}  // namespace tallyrun::testing
