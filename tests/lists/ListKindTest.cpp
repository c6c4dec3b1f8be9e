#include <gtest/gtest.h>

#include "lists/ListKind.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

constexpr int kCharacter = 100;  // twips

std::vector<int> WidthsOf(const FlexGrid& grid) {
  std::vector<int> widths;
  for (int col = 0; col < grid.Cols(); ++col) widths.push_back(grid.ColWidth(col));
  return widths;
}

TEST(ListKind, LaysOutOneBlankRowUnderTheKindsColumns) {
  FlexGrid grid;
  grid.SetMeasurer(TextMeasurer::FixedWidth(kCharacter));

  LayOutListGrid(grid, kIsinKind);
  EXPECT_EQ(grid.Text(0, 4), "Scrip Code");
  EXPECT_EQ(WidthsOf(grid), (std::vector<int>{500, 1100, 1100, 1000, 1200}));

  // Columns and texts of the other list are gone, and its widths with them.
  FillRows(grid, {"1|INE0AA101011|ALPHA|ALP|501", "2|INE0BB202022|BETA|BET|502"});
  grid.SetColWidth(1, 9000);
  LayOutListGrid(grid, kBoKind);
  EXPECT_EQ(RowsOf(grid), std::vector<std::string>{"1|||"});
  EXPECT_EQ(grid.Text(0, 0), "S/N");
  EXPECT_EQ(grid.Text(0, 2), "BO Name");
  EXPECT_EQ(WidthsOf(grid), (std::vector<int>{500, 700, 2700, 1300}));
}

TEST(ListKind, NamesEachListInItsTexts) {
  const ListTexts bo = ListTextsOf(kBoKind);
  EXPECT_EQ(bo.caption, "Tallyrun v1.0 : List of BOs");
  EXPECT_EQ(bo.selectCaption, "Select BO :");
  EXPECT_EQ(bo.gridToolTip,
            "List of BOs. Press INSERT key to add a new row or DELETE key to remove the selected "
            "row(s).");
  EXPECT_EQ(bo.updateCaption, "Send");
  const ListTexts isin = ListTextsOf(kIsinKind);
  EXPECT_EQ(isin.caption, "Tallyrun v1.0 : List of ISINs");
  EXPECT_EQ(isin.selectCaption, "Select ISIN :");
  EXPECT_EQ(isin.updateCaption, "Receive");
  EXPECT_EQ(isin.updateToolTip, "Get the latest list of ISINs from KTX.");
}

}  // namespace
}  // namespace tallyrun::testing
