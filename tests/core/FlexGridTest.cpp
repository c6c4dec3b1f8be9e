// The grid's data: what a cell keeps, where the current cell, the selection and the scroll
// position come to stand when rows go, and that a million rows stay cheap.
#include <functional>
#include <gtest/gtest.h>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "core/FlexGrid.h"
#include "core/RuntimeError.h"
#include "tests/support/GridText.h"

namespace tallyrun {
namespace {

// Counts what the grid tells, and takes the changes as a view does when it paints.
class CountingObserver : public FlexGridObserver {
 public:
  void GridChanged() override { ++changes; }
  void GridScrolled() override { ++scrolls; }
  int changes = 0;
  int scrolls = 0;
};

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

using testing::ColumnOf;
using Texts = std::vector<std::string>;
using Cell = std::pair<int, int>;

Cell Current(const FlexGrid& grid) { return {grid.Row(), grid.Col()}; }
Cell Corner(const FlexGrid& grid) { return {grid.RowSel(), grid.ColSel()}; }

TEST(FlexGrid, GivesBackEveryTextByteForByte) {
  FlexGrid grid;
  Texts texts = {
      "",   "0",   "00",    "007", "7",   "999999999", "1000000000",       "4294967296",  "-5",
      "+5", "1.0", "1,500", " 12", "12 ", "12\r",      "1201950000001234", "\xE9\xFF\x80"};
  texts.insert(texts.end(), {std::string("a\0b", 3), std::string(1, '\0'), std::string(70'000, 'x'),
                             std::string(300'000, 'y')});
  grid.SetRows(static_cast<int>(texts.size()) + 1);
  // Twice, so that the second round meets texts that are already stored.
  for (int round = 0; round < 2; ++round) {
    int row = 0;
    for (const std::string& text : texts) grid.SetText(++row, 0, text);
    row = 0;
    for (const std::string& text : texts) {
      EXPECT_EQ(grid.Text(++row, 0), text);
      EXPECT_EQ(grid.Cell(row, 0), grid.Intern(text));
    }
  }
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int other = row + 1; other < grid.Rows(); ++other) {
      EXPECT_NE(grid.Cell(row, 0), grid.Cell(other, 0)) << row << " and " << other;
    }
  }
}

TEST(FlexGrid, RefusesWhatLiesOutside) {
  FlexGrid grid;
  Fill(grid, 2, 3);
  const ErrorKind outside = ErrorKind::SubscriptOutOfRange;
  const ErrorKind senseless = ErrorKind::InvalidCall;
  struct Case {
    const char* what;
    ErrorKind kind;
    std::function<void()> action;
  };
  const std::vector<Case> cases = {
      {"text row", outside, [&] { grid.Text(3, 0); }},
      {"text row below 0", outside, [&] { grid.Text(-1, 0); }},
      {"text column", outside, [&] { grid.Text(0, 3); }},
      {"set text column", outside, [&] { grid.SetText(0, -1, ""); }},
      {"set cell", outside, [&] { grid.SetCell(3, 0, CellValue::Empty); }},
      {"row", outside, [&] { grid.SetRow(3); }},
      {"column", outside, [&] { grid.SetCol(-1); }},
      {"row selection", outside, [&] { grid.SetRowSel(3); }},
      {"column selection", outside, [&] { grid.SetColSel(3); }},
      {"column width", outside, [&] { grid.ColWidth(3); }},
      {"remove past the end", outside, [&] { grid.RemoveRows(1, 3); }},
      {"reorder the captions", outside, [&] { grid.ReorderRows(std::vector<std::uint32_t>(2)); }},
      {"no rows", senseless, [&] { grid.SetRows(0); }},
      {"no columns", senseless, [&] { grid.SetCols(0); }},
      {"remove captions", senseless, [&] { grid.RemoveRows(0, 1); }},
      {"remove backwards", senseless, [&] { grid.RemoveRows(2, 1); }},
      {"short order", senseless, [&] { grid.ReorderRows({1}); }},
      {"negative width", senseless, [&] { grid.SetColWidth(0, -1); }},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    try {
      each.action();
      ADD_FAILURE() << "nothing was raised";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Kind(), each.kind);
    }
  }
  EXPECT_EQ(ColumnOf(grid, 2), (Texts{"r1c2", "r2c2"}));
}

TEST(FlexGrid, EmptiesRowsAndColumnsThatComeBack) {
  FlexGrid grid;
  Fill(grid, 3, 2);
  grid.SetColWidth(0, 2345);
  grid.SetCols(3);
  EXPECT_EQ(ColumnOf(grid, 1), (Texts{"r1c1", "r2c1", "r3c1"}));
  EXPECT_EQ(ColumnOf(grid, 2), (Texts{"", "", ""}));
  grid.SetCols(1);
  grid.SetCols(2);
  grid.SetRows(2);
  grid.SetRows(4);
  EXPECT_EQ(ColumnOf(grid, 0), (Texts{"r1c0", "", ""}));
  EXPECT_EQ(ColumnOf(grid, 1), (Texts{"", "", ""}));
  EXPECT_EQ(grid.ColWidth(0), 2345);
}

TEST(FlexGrid, SettingTheCurrentCellCollapsesTheSelection) {
  FlexGrid grid;
  Fill(grid, 5, 4);
  grid.SetRow(3);
  grid.SetCol(2);
  grid.SetRowSel(1);
  grid.SetColSel(3);
  EXPECT_EQ(Current(grid), Cell(3, 2));
  EXPECT_EQ(Corner(grid), Cell(1, 3));
  grid.SetCol(1);
  EXPECT_EQ(Corner(grid), Cell(3, 1));
  grid.SetColSel(3);
  grid.SetRow(2);
  EXPECT_EQ(Corner(grid), Cell(2, 1));
  grid.SelectRow(4);
  EXPECT_EQ(Current(grid), Cell(4, 0));
  EXPECT_EQ(Corner(grid), Cell(4, 3));
}

TEST(FlexGrid, DrawsTheSelectionInsideAShrinkingGrid) {
  FlexGrid grid;
  Fill(grid, 5, 4);
  grid.SetRow(5);
  grid.SetCol(3);
  grid.SetRowSel(2);
  grid.SetColSel(1);
  grid.SetRows(4);
  grid.SetCols(3);
  EXPECT_EQ(Current(grid), Cell(3, 2));
  EXPECT_EQ(Corner(grid), Cell(2, 1));
  grid.SetRows(1);
  EXPECT_EQ(grid.Row(), 0);
  grid.SetRows(3);
  EXPECT_EQ(Current(grid), Cell(1, 2)) << "the captions are no place for the current cell";
  EXPECT_EQ(grid.RowSel(), 1);
}

TEST(FlexGrid, RemovedRowsTakeTheSelectionAndTheViewAlong) {
  struct Case {
    const char* what;
    int row, rowSel, topRow;
    int first, last;
    int newRow, newRowSel, newTopRow;
  };
  constexpr int kRows = 20;
  const std::vector<Case> cases = {
      {"the selected block", 5, 7, 4, 5, 7, 5, 5, 4},
      {"the block, selected upward", 7, 5, 4, 5, 7, 5, 5, 4},
      {"rows above", 9, 10, 8, 2, 3, 7, 8, 6},
      {"rows below", 2, 3, 1, 10, 12, 2, 3, 1},
      {"the first visible row among others", 9, 9, 8, 6, 8, 6, 6, 6},
      {"the last rows", 19, 19, 15, 15, 19, 14, 14, 10},
      {"all rows", 3, 9, 5, 1, 19, 0, 0, 1},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    FlexGrid grid;
    Fill(grid, kRows - 1, 1);
    grid.SetPageRows(5);
    grid.SetTopRow(each.topRow);
    grid.SetRow(each.row);
    grid.SetRowSel(each.rowSel);
    Texts expected = ColumnOf(grid, 0);
    expected.erase(expected.begin() + each.first - 1, expected.begin() + each.last);
    grid.RemoveRows(each.first, each.last);
    EXPECT_EQ(ColumnOf(grid, 0), expected);
    EXPECT_EQ(grid.Row(), each.newRow);
    EXPECT_EQ(grid.RowSel(), each.newRowSel);
    EXPECT_EQ(grid.TopRow(), each.newTopRow);
  }
}

TEST(FlexGrid, ScrollsNoFurtherThanTheRowThatFillsTheWindow) {
  FlexGrid grid;
  CountingObserver observer;
  Fill(grid, 100, 3);
  grid.SetObserver(&observer);
  grid.SetPageRows(10);
  grid.SetTopRow(1000);
  EXPECT_EQ(grid.TopRow(), 91);
  EXPECT_EQ(observer.scrolls, 1);
  grid.SetTopRow(95);
  EXPECT_EQ(observer.scrolls, 1) << "nothing moved";
  EXPECT_TRUE(grid.IsRowVisible(100));
  EXPECT_FALSE(grid.IsRowVisible(90));
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
  EXPECT_EQ(observer.scrolls, 6);
  grid.SetObserver(nullptr);
}

TEST(FlexGrid, TellsOfChangesOnceUntilTheyAreTaken) {
  FlexGrid grid;
  CountingObserver observer;
  Fill(grid, 10, 3);
  grid.TakeChanges();
  grid.SetObserver(&observer);
  EXPECT_FALSE(grid.TakeChanges());
  const std::vector<std::pair<const char*, std::function<void()>>> changes = {
      {"text", [&] { grid.SetText(1, 1, "x"); }},
      {"cell", [&] { grid.SetCell(1, 1, CellValue::Empty); }},
      {"rows", [&] { grid.SetRows(12); }},
      {"columns", [&] { grid.SetCols(4); }},
      {"remove", [&] { grid.RemoveRows(1, 1); }},
      {"width", [&] { grid.SetColWidth(0, 10); }},
      {"row", [&] { grid.SetRow(2); }},
      {"column", [&] { grid.SetCol(2); }},
      {"row selection", [&] { grid.SetRowSel(4); }},
      {"column selection", [&] { grid.SetColSel(3); }},
      {"scroll", [&] { grid.SetTopRow(2); }},
  };
  int told = 0;
  for (const auto& [what, change] : changes) {
    change();
    change();
    EXPECT_EQ(observer.changes, ++told) << what;
    EXPECT_TRUE(grid.TakeChanges()) << what;
    EXPECT_FALSE(grid.TakeChanges()) << what;
  }
  grid.SetObserver(nullptr);
}

TEST(FlexGrid, ForgetsTheTextsOfALargeSheetThatIsCleared) {
  FlexGrid grid;
  Fill(grid, 20'000, 2);
  ASSERT_GT(grid.DistinctTexts(), 40'000u);
  // Row by row, as merging rows upward does: the texts that stay must survive every rebuild.
  while (grid.Rows() > 3) grid.SetRows(grid.Rows() - 1);
  EXPECT_LT(grid.DistinctTexts(), 2'000u);
  EXPECT_EQ(ColumnOf(grid, 1), (Texts{"r1c1", "r2c1"}));

  Fill(grid, 20'000, 2);
  grid.RemoveRows(2, 20'000);
  EXPECT_LT(grid.DistinctTexts(), 2'000u);
  EXPECT_EQ(grid.Text(0, 1), "r0c1");
  EXPECT_EQ(ColumnOf(grid, 1), (Texts{"r1c1"}));
}

TEST(FlexGrid, StoresRepeatedTextsAndNumbersOnceForAMillionRows) {
  constexpr int kRows = 1'000'001;
  FlexGrid grid;
  grid.SetCols(13);
  grid.SetRows(kRows);
  const CellValue broker = grid.Intern("ALPHA BROKERS");
  for (int row = 1; row < kRows; ++row) {
    grid.SetCell(row, 0, grid.Intern(std::to_string(row)));
    grid.SetCell(row, 1, broker);
  }
  EXPECT_EQ(grid.DistinctTexts(), 2u) << "the empty text and the broker";
  EXPECT_EQ(grid.Text(kRows - 1, 0), "1000000");
  EXPECT_EQ(grid.Text(kRows - 1, 1), "ALPHA BROKERS");
  std::vector<std::uint32_t> order(static_cast<std::size_t>(kRows) - 1);
  std::iota(order.rbegin(), order.rend(), 1u);
  grid.ReorderRows(order);
  EXPECT_EQ(grid.Text(1, 0), "1000000");
  grid.RemoveRows(2, kRows - 1);
  EXPECT_EQ(grid.Rows(), 2);
  EXPECT_EQ(grid.Text(1, 0), "1000000");
}

}  // namespace
}  // namespace tallyrun
