#include "app/CellPaste.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

using CellPasteTest = EntrySheetFixture;

TEST_F(CellPasteTest, CellsThatBelongTogetherGoIntoEverySelectedRow) {
  const std::string source = "1|b|c|d|e|f|g|h|i|j|k|a long quantity|m";
  const std::pair<std::vector<int>, const char*> cases[] = {
      {{0}, "||||||||||||"},           {{3}, "|||d|||||||||"},
      {{4}, "||||e||||||||"},          {{5, 6, 7}, "|||||f|g|h|||||"},
      {{8, 9, 10}, "||||||||i|j|k||"}, {{11}, "|||||||||||a long quantity|"}};
  for (const auto& [cols, pasted] : cases) {
    for (const int col : cols) {
      FillRows(grid, {source, "", ""});
      grid.SetRow(3);
      grid.SetCol(col);
      grid.SetRowSel(2);
      PasteIntoSelection(grid, 4);  // that row is gone
      PasteIntoSelection(grid, 1);
      EXPECT_EQ(RowsOf(grid), (std::vector<std::string>{source, pasted, pasted})) << col;
    }
  }
  EXPECT_EQ(grid.ColWidth(EntryColumn::kQuantity), 15 * 100 + 200);
}

}  // namespace
}  // namespace tallyrun::testing
