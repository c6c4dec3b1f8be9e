#include <gmock/gmock.h>

#include "app/CellPaste.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

class CellPasteTest : public EntrySheetFixture {};

TEST_F(CellPasteTest, CellsThatBelongTogetherTravelTogether) {
  const std::string source = "1|b|c|d|e|f|g|h|i|j|k|l|m";
  const std::string target = "2||||||||||||";
  const struct {
    int col;
    const char* pasted;
  } cases[] = {
      {EntryColumn::kSerial, "2||||||||||||"},
      {EntryColumn::kTradeDate, "2|||d|||||||||"},
      {EntryColumn::kDeliveryDate, "2||||e||||||||"},
      {EntryColumn::kClientCode, "2|||||f|g|h|||||"},
      {EntryColumn::kBoId, "2|||||f|g|h|||||"},
      {EntryColumn::kBoName, "2|||||f|g|h|||||"},
      {EntryColumn::kScripId, "2||||||||i|j|k||"},
      {EntryColumn::kIsinCode, "2||||||||i|j|k||"},
      {EntryColumn::kIsinName, "2||||||||i|j|k||"},
      {EntryColumn::kQuantity, "2|||||||||||l|"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.col);
    FillRows(grid, {source, target});
    grid.SetRow(2);
    grid.SetCol(each.col);
    PasteIntoSelection(grid, 1);
    EXPECT_EQ(RowsOf(grid), (std::vector<std::string>{source, each.pasted}));
  }
}

TEST_F(CellPasteTest, WithoutItsSourceRowNothingHappens) {
  FillRows(grid, {"1|||kept|||||||||"});
  grid.SetRow(1);
  grid.SetCol(EntryColumn::kTradeDate);
  PasteIntoSelection(grid, 2);
  EXPECT_EQ(grid.Text(1, EntryColumn::kTradeDate), "kept");
}

TEST_F(CellPasteTest, FillsEverySelectedRowUpwardAndDownwardAndWidens) {
  FillRows(grid, {"1||||||||||||", "2||||||||||||", "3|||||||||||a long quantity|"});
  grid.SetRow(2);
  grid.SetCol(EntryColumn::kQuantity);
  grid.SetRowSel(1);
  PasteIntoSelection(grid, 3);
  EXPECT_EQ(grid.Text(1, EntryColumn::kQuantity), "a long quantity");
  EXPECT_EQ(grid.Text(2, EntryColumn::kQuantity), "a long quantity");
  EXPECT_EQ(grid.ColWidth(EntryColumn::kQuantity), 15 * 100 + 200);
}

}  // namespace
}  // namespace tallyrun::testing
