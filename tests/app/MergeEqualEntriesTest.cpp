#include <gmock/gmock.h>

#include "app/MergeEqualEntries.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

class SummarizeTest : public EntrySheetFixture {
 protected:
  static std::string Row(std::string_view serial, std::string_view client, std::string_view boId,
                         std::string_view isin, std::string_view quantity) {
    return EntryCells({{EntryColumn::kSerial, serial},
                       {EntryColumn::kClientCode, client},
                       {EntryColumn::kBoId, boId},
                       {EntryColumn::kIsinCode, isin},
                       {EntryColumn::kQuantity, quantity}});
  }
};

TEST_F(SummarizeTest, ARunCollapsesIntoItsFirstRow) {
  FillRows(grid,
           {Row("1", "first", "A", "X", "100"), Row("2", "second", "A", "X", "50"),
            Row("3", "third", "A", "X", " 2.5e1 "), Row("4", "", "A", "Y", "7"),
            Row("5", "", "a", "Y", "8"), Row("6", "", "B", "", "-1"), Row("7", "", "B", "", "1")});
  MergeEqualEntries(grid);
  EXPECT_EQ(RowsOf(grid), (std::vector<std::string>{
                              Row("1", "first", "A", "X", "175"), Row("2", "", "A", "Y", "7"),
                              Row("3", "", "a", "Y", "8"), Row("4", "", "B", "", "0")}));
}

struct ErrorCase {
  const char* name;
  std::vector<std::string> quantities;  // of one run
  const char* error;
  std::vector<std::string> left;
};

TEST_F(SummarizeTest, AnErrorKeepsWhatWasMergedBelowIt) {
  const ErrorCase cases[] = {
      {"no number on top", {"many", "2", "3"}, "Type mismatch", {"many", "5"}},
      {"no number at the bottom", {"1", "2", ""}, "Type mismatch", {"1", "2", ""}},
      {"a quantity past 32 bits", {"1", "99999999999"}, "Overflow", {"1", "99999999999"}},
      {"two faults, the upper is told",
       {"many", "99999999999"},
       "Type mismatch",
       {"many", "99999999999"}},
      {"two faults the other way round",
       {"99999999999", "many"},
       "Overflow",
       {"99999999999", "many"}},
      {"a sum past 32 bits",
       {"2000000000", "2000000000"},
       "Overflow",
       {"2000000000", "2000000000"}},
  };
  for (const ErrorCase& each : cases) {
    SCOPED_TRACE(each.name);
    std::vector<std::string> rows;
    for (const std::string& quantity : each.quantities) {
      rows.push_back(Row(std::to_string(rows.size() + 1), "", "A", "X", quantity));
    }
    FillRows(grid, rows);
    EXPECT_EQ(ErrorOf([&] { MergeEqualEntries(grid); }), each.error);
    EXPECT_EQ(ColumnOf(grid, EntryColumn::kQuantity), each.left);
  }
}

TEST_F(SummarizeTest, TheCaptionsAreNeverMergedInto) {
  grid.SetText(0, EntryColumn::kBoId, "BO ID");
  grid.SetText(0, EntryColumn::kIsinCode, "ISIN Code");
  const std::vector<std::string> rows = {Row("1", "", "BO ID", "ISIN Code", "5")};
  FillRows(grid, rows);
  MergeEqualEntries(grid);
  EXPECT_EQ(RowsOf(grid), rows);
}

}  // namespace
}  // namespace tallyrun::testing
