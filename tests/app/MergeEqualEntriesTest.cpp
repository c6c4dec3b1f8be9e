#include <gmock/gmock.h>

#include "app/MergeEqualEntries.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

using SummarizeTest = EntrySheetFixture;

TEST_F(SummarizeTest, ARunCollapsesIntoItsFirstRow) {
  grid.SetText(0, EntryColumn::kBoId, "A");  // the captions are never merged into
  grid.SetText(0, EntryColumn::kIsinCode, "X");
  FillRows(grid,
           {"1|||||first|A|||X||100|", "2|||||second|A|||X||50|", "3|||||third|A|||X|| 2.5e1 |",
            "4||||||A|||Y||7|", "5||||||a|||Y||8|", "6||||||B|||||-1|", "7||||||B|||||1|"});
  MergeEqualEntries(grid);
  EXPECT_THAT(RowsOf(grid), ElementsAre("1|||||first|A|||X||175|", "2||||||A|||Y||7|",
                                        "3||||||a|||Y||8|", "4||||||B|||||0|"));
}

TEST_F(SummarizeTest, AnErrorIsTheUppersOfAPairAndKeepsWhatWasMergedBelowIt) {
  const struct {
    std::vector<std::string> quantities;  // of one run
    const char* error;
    std::vector<std::string> left;
  } cases[] = {
      {{"many", "2", "3"}, "Type mismatch", {"many", "5"}},
      {{"1", "2", ""}, "Type mismatch", {"1", "2", ""}},
      {{"many", "99999999999"}, "Type mismatch", {"many", "99999999999"}},
      {{"99999999999", "many"}, "Overflow", {"99999999999", "many"}},
      {{"2000000000", "2000000000"}, "Overflow", {"2000000000", "2000000000"}},
  };
  for (const auto& each : cases) {
    std::vector<std::string> rows;
    for (const std::string& quantity : each.quantities) rows.push_back("||||||A|||X||" + quantity);
    FillRows(grid, rows);
    EXPECT_EQ(ErrorOf([&] { MergeEqualEntries(grid); }), each.error);
    EXPECT_EQ(ColumnOf(grid, EntryColumn::kQuantity), each.left);
  }
}

}  // namespace
}  // namespace tallyrun::testing
