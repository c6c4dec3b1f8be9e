#include <gtest/gtest.h>

#include "lists/ListKind.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

std::vector<int> WidthsOf(const FlexGrid& grid) {
  std::vector<int> widths;
  for (int col = 0; col < grid.Cols(); ++col) widths.push_back(grid.ColWidth(col));
  return widths;
}

TEST(ListKind, LaysOutOneBlankRowUnderTheKindsColumns) {
  FlexGrid grid;
  grid.SetMeasurer(TextMeasurer::FixedWidth(100));
  LayOutListGrid(grid, kIsinKind);
  EXPECT_EQ(grid.Text(0, 4), "Scrip Code");
  EXPECT_EQ(WidthsOf(grid), (std::vector<int>{500, 1100, 1100, 1000, 1200}));

  // Columns and texts of the other list are gone, and its widths with them.
  FillRows(grid, {"1|INE0AA101011|ALPHA|ALP|501", "2|INE0BB202022|BETA|BET|502"});
  grid.SetColWidth(1, 9000);
  LayOutListGrid(grid, kBoKind);
  EXPECT_EQ(RowsOf(grid), std::vector<std::string>{"1|||"});
  EXPECT_EQ(grid.Text(0, 2), "BO Name");
  EXPECT_EQ(WidthsOf(grid), (std::vector<int>{500, 700, 2700, 1300}));
}

}  // namespace
}  // namespace tallyrun::testing
