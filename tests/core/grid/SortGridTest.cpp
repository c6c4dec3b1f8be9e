#include <algorithm>
#include <gmock/gmock.h>
#include <random>

#include "core/entry/EntryRow.h"
#include "core/entry/SortEntries.h"
#include "core/grid/SortGrid.h"
#include "core/text/Conversion.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

TEST(SortGridTest, EntriesStandByBoClientIsinThenLargerQuantityFirstAndAreRenumbered) {
  FlexGrid grid;
  grid.SetCols(EntryColumn::kCount);
  FillRows(grid, {"|||||A|2|||X||5|last of X", "|||||A|2|||W||1|W", "|||||B|10|||X||1|BO as text",
                  "|||||A|2|||X||40|first of X", "|||||a|2|||A||1|lower case after upper",
                  "|||||A|2|||X||5|stable", "|||||A|2|||X||none|0", "|||||A|2|||X||-1|negative"});
  SortEntries(grid);
  EXPECT_THAT(ColumnOf(grid, EntryColumn::kInternalRef),
              ElementsAre("BO as text", "W", "first of X", "last of X", "stable", "0", "negative",
                          "lower case after upper"));
  EXPECT_EQ(grid.Text(8, EntryColumn::kSerial), "8");
}

// The order that sorting by the last key first, each time stably, gives row by row.
std::vector<std::string> PlainlySorted(const FlexGrid& grid, const std::vector<SortKey>& keys) {
  std::vector<int> rows;
  for (int row = 1; row < grid.Rows(); ++row) rows.push_back(row);
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
    std::stable_sort(rows.begin(), rows.end(), [&](int left, int right) {
      if (key->descending) std::swap(left, right);
      const std::string leftText = grid.Text(left, key->col);
      const std::string rightText = grid.Text(right, key->col);
      if (!key->numeric) return leftText < rightText;
      return (IsNumeric(leftText) ? ToDouble(leftText) : 0) <
             (IsNumeric(rightText) ? ToDouble(rightText) : 0);
    });
  }
  const std::vector<std::string> all = RowsOf(grid);
  std::vector<std::string> sorted;
  for (const int row : rows) sorted.push_back(all[static_cast<std::size_t>(row) - 1]);
  return sorted;
}

// Few rows and many, few keys and more than a machine word has room for, texts that begin alike,
// keys that follow from one another, and sheets that were sorted before and had cells changed
// since, to texts that the last sort knew and to new ones.
TEST(SortGridTest, AgreesWithAPlainSortOnRandomRows) {
  std::vector<std::string> texts = {"",  "0",    "00", "7",   "07", "10", "9",
                                    "a", "\xE9", "A",  "1.5", "-3", "x",  "999999999999"};
  for (const char* end : {"11", "29", "", "11\xE9"})
    texts.push_back(std::string("KX00010000") + end);
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto pick = [&](std::size_t count) { return random() % count; };
    FlexGrid grid;
    const std::size_t cols = seed % 4 == 1 ? 20 : 5;
    grid.SetCols(static_cast<int>(cols));
    std::vector<std::string> rows;
    const std::size_t count = pick(seed % 40 == 0 ? 800 : 40);
    for (std::size_t row = 0; row < count; ++row) {
      const std::size_t account = pick(texts.size());
      rows.push_back(std::to_string(row) + "|" + texts[account] + "|" + texts[account / 2] + "|" +
                     texts[pick(4)]);
      for (std::size_t col = 4; col < cols; ++col) rows.back() += "|" + texts[pick(texts.size())];
    }
    FillRows(grid, rows);
    std::vector<SortKey> keys;
    while (keys.size() < cols - 1) {
      keys.push_back({static_cast<int>(1 + pick(cols - 1)), pick(2) == 0, pick(2) == 0});
    }
    for (int round = 0; round < 3; ++round) {
      const std::vector<std::string> expected = PlainlySorted(grid, keys);
      SortGrid(grid, keys);
      ASSERT_EQ(RowsOf(grid), expected) << "round " << round;
      if (grid.Rows() == 1) break;
      for (std::size_t change = 0; change < pick(3); ++change) {
        const int row = 1 + static_cast<int>(pick(static_cast<std::size_t>(grid.Rows()) - 1));
        grid.SetText(row, 1 + static_cast<int>(pick(cols - 1)),
                     round == 0 ? texts[pick(4)] : "new");
      }
    }
  }
}

}  // namespace
}  // namespace tallyrun::testing
