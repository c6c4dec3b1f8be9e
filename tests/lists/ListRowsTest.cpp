// The rows of the list window: their layout, the search and the blank row.
#include "lists/ListRows.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

using ListRows = ProgramFixture;

TEST_F(ListRows, TheFirstRowWithTheTextInAnyDataCellIsFound) {
  LayOutListGrid(grid, kIsinKind);
  FillRows(grid, {"1|INE0AA101011|ALPHA|ALP|501"});
  LayOutListGrid(grid, kBoKind);
  EXPECT_EQ(RowsOf(grid), std::vector<std::string>{"1|||"});  // nothing stays of the other list
  FillRows(grid, {"1|1201950000000017|ANITA MEHROTRA|C001", "2|1201950000000025|abc TRADERS|C002",
                  "3|1201950000000033|JOS\xC9 ABC|C 14", "4|14|ABC|C006"});
  // Rows go before columns, letter case counts, and the S/N column is passed over.
  const std::pair<const char*, std::optional<int>> cases[] = {
      {"14", 3}, {"ABC", 3}, {"abc", 2}, {"4", 3}, {"MEHROTRAC", {}}, {"C006", 4}, {"nobody", {}}};
  for (const auto& [text, row] : cases) EXPECT_EQ(FindRowContaining(grid, text), row) << text;
}

TEST_F(ListRows, ABlankRowHasNothingButBlanksInItsDataCellsAndIsToldAndSelected) {
  LayOutListGrid(grid, kBoKind);
  FillRows(grid, {"1|a||", "2||b|", "3|||c", "4|||\r"});  // what ends a file is text
  EXPECT_FALSE(HasBlankRow(grid));
  std::vector<std::string> rows(100, "1|a|b|c");
  rows[59] = "60| |  |";
  FillRows(grid, rows);
  grid.SetPageRows(10);
  EXPECT_TRUE(HasBlankRow(grid));
  EXPECT_EQ(platform.TakeMessage(), (Message{"Blank row (row number 60) cannot be saved.",
                                             "Blank Row Found.", MessageIcon::Critical}));
  EXPECT_EQ(std::vector({grid.TopRow(), grid.Row(), grid.ColSel()}), std::vector({60, 60, 3}));
}

}  // namespace
}  // namespace tallyrun::testing
