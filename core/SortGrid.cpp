#include "core/SortGrid.h"

#include <algorithm>
#include <numeric>

#include "core/Conversion.h"
#include "core/EntryRow.h"
#include "core/GridRows.h"

namespace tallyrun {
namespace {

// The place of every row's cell among the column's distinct values in the key's order; equal
// places for cells that compare as equal. Each distinct value is read and compared only here.
class ColumnRanks {
 public:
  ColumnRanks(const FlexGrid& grid, const SortKey& key);

  std::uint32_t Of(int row) const { return ranks_[static_cast<std::size_t>(row) - 1]; }
  std::size_t Count() const { return count_; }

 private:
  std::vector<std::uint32_t> ranks_;  // by data row
  std::size_t count_ = 0;
};

std::vector<CellValue> DistinctValues(const FlexGrid& grid, int col) {
  std::vector<CellValue> values;
  values.reserve(static_cast<std::size_t>(grid.Rows() - 1));
  for (int row = 1; row < grid.Rows(); ++row) values.push_back(grid.Cell(row, col));
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
  return values;
}

double NumberOrZero(std::string_view text) { return IsNumeric(text) ? ToDouble(text) : 0; }

ColumnRanks::ColumnRanks(const FlexGrid& grid, const SortKey& key) {
  const std::vector<CellValue> values = DistinctValues(grid, key.col);
  CellScratch scratch;
  CellScratch otherScratch;

  std::vector<double> numbers;
  if (key.numeric) {
    numbers.reserve(values.size());
    for (const CellValue value : values) numbers.push_back(NumberOrZero(grid.View(value, scratch)));
  }
  const auto before = [&](std::uint32_t left, std::uint32_t right) {
    if (key.descending) std::swap(left, right);
    if (key.numeric) return numbers[left] < numbers[right];
    return grid.View(values[left], scratch) < grid.View(values[right], otherScratch);
  };

  std::vector<std::uint32_t> order(values.size());
  std::iota(order.begin(), order.end(), 0u);
  std::sort(order.begin(), order.end(), before);

  std::vector<std::uint32_t> rankOf(values.size());  // by place in `values`
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i > 0 && before(order[i - 1], order[i])) ++count_;
    rankOf[order[i]] = static_cast<std::uint32_t>(count_);
  }
  if (!order.empty()) ++count_;

  ranks_.reserve(static_cast<std::size_t>(grid.Rows() - 1));
  for (int row = 1; row < grid.Rows(); ++row) {
    const auto place = std::lower_bound(values.begin(), values.end(), grid.Cell(row, key.col));
    ranks_.push_back(rankOf[static_cast<std::size_t>(place - values.begin())]);
  }
}

// Stable counting sort of `order` by rank.
void SortByRank(const ColumnRanks& ranks, std::vector<std::uint32_t>& order) {
  std::vector<std::uint32_t> starts(ranks.Count() + 1, 0);
  for (const std::uint32_t row : order) ++starts[ranks.Of(static_cast<int>(row)) + 1];
  std::partial_sum(starts.begin(), starts.end(), starts.begin());
  std::vector<std::uint32_t> sorted(order.size());
  for (const std::uint32_t row : order) sorted[starts[ranks.Of(static_cast<int>(row))]++] = row;
  order = std::move(sorted);
}

}  // namespace

void SortGrid(FlexGrid& grid, const std::vector<SortKey>& keys) {
  std::vector<std::uint32_t> order(static_cast<std::size_t>(grid.Rows() - 1));
  std::iota(order.begin(), order.end(), 1u);
  // From the last key to the first: each pass is stable, so the first key ends as the major one.
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
    SortByRank(ColumnRanks(grid, *key), order);
  }
  grid.ReorderRows(order);
}

void SortEntries(FlexGrid& grid) {
  static const std::vector<SortKey> kKeys = {
      {EntryColumn::kBoId},
      {EntryColumn::kClientCode},
      {EntryColumn::kIsinCode},
      {.col = EntryColumn::kQuantity, .descending = true, .numeric = true},
  };
  SortGrid(grid, kKeys);
  RenumberRows(grid, 1);
  for (int row = 1; row < grid.Rows(); ++row) FitColumnWidth(grid, row, EntryColumn::kSerial);
}

}  // namespace tallyrun
