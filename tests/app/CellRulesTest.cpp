#include <gmock/gmock.h>

#include "app/CellRules.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/GridText.h"

namespace tallyrun {
namespace {

using testing::EntryCells;
using testing::FillRows;
using testing::RowsOf;

TEST(EditableColumnsTest, EachTriggerHasItsOwnTable) {
  const struct {
    EditTrigger trigger;
    bool freeEntry;
    const char* editable;  // one mark per column, 0 to 12
  } cases[] = {
      {EditTrigger::Enter, false, "--xxxxx-xx-x-"},
      {EditTrigger::DoubleClick, false, "---xxxx-xx-x-"},
      {EditTrigger::Enter, true, "xxxxxxxxxxxxx"},
      {EditTrigger::DoubleClick, true, "---xxxxxxxxx-"},
  };
  for (const auto& each : cases) {
    std::string editable;
    for (int col = 0; col < EntryColumn::kCount; ++col) {
      editable += IsEditable(col, each.trigger, each.freeEntry) ? 'x' : '-';
    }
    EXPECT_EQ(editable, each.editable) << each.freeEntry;
  }
}

class CellRulesTest : public testing::EntrySheetFixture {
 protected:
  // The row before every case: all cells that a rule may fill hold something.
  static std::string Before() {
    return EntryCells({{EntryColumn::kClientCode, "client"},
                       {EntryColumn::kBoId, "bo"},
                       {EntryColumn::kBoName, "name"},
                       {EntryColumn::kScripId, "scrip"},
                       {EntryColumn::kIsinCode, "isin"},
                       {EntryColumn::kIsinName, "isin name"},
                       {EntryColumn::kQuantity, "1"}});
  }
};

struct CommitCase {
  const char* name;
  int col;
  const char* typed;
  const char* row;  // columns 5 to 11 afterwards
};

std::string Columns5To11(const FlexGrid& grid) {
  std::string cells;
  for (int col = 5; col <= 11; ++col) cells += (col > 5 ? "|" : "") + grid.Text(1, col);
  return cells;
}

TEST_F(CellRulesTest, KeyColumnsFillTheCellsThatFollowFromThem) {
  const CommitCase cases[] = {
      {"a short BO ID is completed", EntryColumn::kBoId, " 002 ",
       "C2|1201950000000002|BEN BIRCH|scrip|isin|isin name|1"},
      {"a full BO ID is kept", EntryColumn::kBoId, "1201950000000001",
       "C1|1201950000000001|ANN ALDER|scrip|isin|isin name|1"},
      {"an unknown BO ID", EntryColumn::kBoId, "9",
       "|1201950000000009|BO NAME NOT FOUND|scrip|isin|isin name|1"},
      {"no BO ID", EntryColumn::kBoId, "  ", "|||scrip|isin|isin name|1"},
      {"a client code", EntryColumn::kClientCode, "C3",
       "C3|1201950000000003|CL\xC9O CEDAR|scrip|isin|isin name|1"},
      {"a client code in other case", EntryColumn::kClientCode, "c3",
       "c3||BO NAME NOT FOUND|scrip|isin|isin name|1"},
      {"no client code", EntryColumn::kClientCode, "", "|||scrip|isin|isin name|1"},
      {"a part of a scrip ID", EntryColumn::kScripId, "rav",
       "client|bo|name|rav|KX0002000029|BRAVO BANK LTD|1"},
      {"an unknown scrip ID", EntryColumn::kScripId, "zz",
       "client|bo|name|zz||ISIN NAME NOT FOUND|1"},
      {"no scrip ID", EntryColumn::kScripId, "", "client|bo|name||||1"},
      {"a part of an ISIN code is completed", EntryColumn::kIsinCode, "x0003",
       "client|bo|name|CHARLC|KX0003000037|CHARLIE CABLE LTD|1"},
      {"an unknown ISIN code stays as typed", EntryColumn::kIsinCode, "ZZ",
       "client|bo|name||ZZ|ISIN NAME NOT FOUND|1"},
      {"no ISIN code", EntryColumn::kIsinCode, "", "client|bo|name||||1"},
      {"thousands separators go", EntryColumn::kQuantity, "1,500",
       "client|bo|name|scrip|isin|isin name|1500"},
      {"no quantity", EntryColumn::kQuantity, ",", "client|bo|name|scrip|isin|isin name|"},
      {"a name is taken as typed", EntryColumn::kBoName, " other ",
       "client|bo|other|scrip|isin|isin name|1"},
  };
  for (const CommitCase& each : cases) {
    SCOPED_TRACE(each.name);
    FillRows(grid, {Before()});
    std::string text = each.typed;
    EXPECT_TRUE(CommitCellText(grid, 1, each.col, text, false));
    EXPECT_EQ(Columns5To11(grid), each.row);
    EXPECT_EQ(text, grid.Text(1, each.col));
    EXPECT_TRUE(platform.messages.empty());
  }
}

TEST_F(CellRulesTest, FreeEntryLeavesCompletionAndChecksInForceAndNoLookups) {
  const CommitCase cases[] = {
      {"completed", EntryColumn::kBoId, "2", "client|1201950000000002|name|scrip|isin|isin name|1"},
      {"cleared", EntryColumn::kBoId, "", "|||scrip|isin|isin name|1"},
      {"client code", EntryColumn::kClientCode, "", "|bo|name|scrip|isin|isin name|1"},
      {"scrip ID", EntryColumn::kScripId, "rav", "client|bo|name|rav|isin|isin name|1"},
      {"ISIN code", EntryColumn::kIsinCode, "x0003", "client|bo|name|scrip|x0003|isin name|1"},
      {"quantity", EntryColumn::kQuantity, "2,0", "client|bo|name|scrip|isin|isin name|20"},
  };
  for (const CommitCase& each : cases) {
    SCOPED_TRACE(each.name);
    FillRows(grid, {Before()});
    std::string text = each.typed;
    EXPECT_TRUE(CommitCellText(grid, 1, each.col, text, true));
    EXPECT_EQ(Columns5To11(grid), each.row);
  }
}

TEST_F(CellRulesTest, ARefusedTextLeavesTheRowAndGoesOnBeingEdited) {
  for (const bool freeEntry : {false, true}) {
    FillRows(grid, {Before()});
    std::string text = " 12345678901234567 ";
    EXPECT_FALSE(CommitCellText(grid, 1, EntryColumn::kBoId, text, freeEntry));
    EXPECT_EQ(platform.TakeMessage(), (Message{"BOID length can not be greater than 16.",
                                               "Tallyrun", MessageIcon::Critical}));
    EXPECT_EQ(text, "12345678901234567");

    text = "1,5a";
    EXPECT_FALSE(CommitCellText(grid, 1, EntryColumn::kQuantity, text, freeEntry));
    EXPECT_EQ(platform.TakeMessage(),
              (Message{"Quantity must be numeric.", "Invalid Entry.", MessageIcon::Critical}));
    EXPECT_EQ(text, "15a");
    EXPECT_EQ(RowsOf(grid), std::vector<std::string>{Before()});
  }
}

TEST_F(CellRulesTest, WidensTheColumnsItFills) {
  std::string text = "3";
  CommitCellText(grid, 1, EntryColumn::kIsinCode, text, false);
  EXPECT_EQ(grid.ColWidth(EntryColumn::kIsinName), 17 * 100 + 200);
  EXPECT_EQ(grid.ColWidth(EntryColumn::kIsinCode), 12 * 100 + 200);
}

TEST_F(CellRulesTest, EditorsStartWithTheCellOrElseWithTheCellAbove) {
  FillRows(grid, {EntryCells({{3, "05-Jan-2010"}, {8, "first"}}),
                  EntryCells({{3, "soon"}, {8, " "}}), EntryCells({{3, "6-1-10"}, {8, "third"}})});
  EXPECT_EQ(EditorTextFor(grid, 2, 8), "first");
  EXPECT_EQ(EditorTextFor(grid, 3, 8), "third");
  EXPECT_EQ(EditorTextFor(grid, 1, 9), "");
  EXPECT_EQ(EditorDateFor(grid, 2, 3), (Date{2010, 1, 5}));
  EXPECT_EQ(EditorDateFor(grid, 3, 3), (Date{2010, 1, 6}));
  EXPECT_EQ(EditorDateFor(grid, 1, 4), std::nullopt);
}

}  // namespace
}  // namespace tallyrun
