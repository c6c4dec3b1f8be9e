#include "core/grid/SortGrid.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string_view>
#include <utility>

#include "core/grid/PerValue.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

double SortingNumber(std::string_view text) { return IsNumeric(text) ? ToDouble(text) : 0; }

// Below 0 when `left` comes first in the key's order, 0 when neither does.
int Compare(const FlexGrid& grid, const SortKey& key, CellValue left, CellValue right) {
  if (left == right) return 0;
  const CellText leftText = grid.Text(left);
  const CellText rightText = grid.Text(right);
  int order = 0;
  if (key.numeric) {
    const double leftNumber = SortingNumber(leftText);
    const double rightNumber = SortingNumber(rightText);
    order = leftNumber < rightNumber ? -1 : leftNumber > rightNumber ? 1 : 0;
  } else {
    order = std::string_view(leftText).compare(rightText);
  }
  return key.descending ? -order : order;
}

bool IsSorted(const FlexGrid& grid, const std::vector<SortKey>& keys) {
  for (int row = 2; row < grid.Rows(); ++row) {
    for (const SortKey& key : keys) {
      const int order = Compare(grid, key, grid.Cell(row - 1, key.col), grid.Cell(row, key.col));
      if (order > 0) return false;
      if (order < 0) break;
    }
  }
  return true;
}

// A distinct value of a key's column with a number that orders as its beginning does.
struct Keyed {
  std::uint64_t order;
  CellValue value;
};

// How many characters the values have in common at their beginning: codes of one kind mostly begin
// alike, which orders nothing.
std::size_t CommonBeginning(const FlexGrid& grid, const std::vector<CellValue>& values) {
  const CellText first = grid.Text(values.front());
  std::string_view common = first;
  for (const CellValue value : values) {
    const CellText text = grid.Text(value);
    const std::string_view view = text;
    common = common.substr(0, view.size());
    while (!view.starts_with(common)) common.remove_suffix(1);
  }
  return common.size();
}

// Eight characters from `begin` on as a number; a shorter text comes first.
std::uint64_t OrderOf(std::string_view text, std::size_t begin) {
  std::uint64_t order = 0;
  for (std::size_t at = begin; at < begin + sizeof order; ++at) {
    order = order << 8 | (at < text.size() ? static_cast<unsigned char>(text[at]) : 0u);
  }
  return order;
}

// Puts the distinct values in the key's order. Texts are compared by eight of their characters at
// once, and looked at again only where those are alike.
void SortValues(const FlexGrid& grid, const SortKey& key, std::vector<CellValue>& values) {
  const std::size_t common = key.numeric || values.empty() ? 0 : CommonBeginning(grid, values);
  std::vector<Keyed> keyed;
  keyed.reserve(values.size());
  for (const CellValue value : values) {
    const std::uint64_t order = key.numeric ? 0 : OrderOf(grid.Text(value), common);
    keyed.push_back({key.descending ? ~order : order, value});
  }
  std::sort(keyed.begin(), keyed.end(), [&](const Keyed& left, const Keyed& right) {
    if (left.order != right.order) return left.order < right.order;
    return Compare(grid, key, left.value, right.value) < 0;
  });
  for (std::size_t at = 0; at < keyed.size(); ++at) values[at] = keyed[at].value;
}

// The rank of every row in a key's order, from 0 on; equal for what compares as equal.
struct Ranks {
  std::vector<std::uint32_t> ofRows;  // by data row, from 0 on
  std::size_t count = 0;              // distinct ranks
};

Ranks RanksOf(const FlexGrid& grid, const SortKey& key) {
  const std::vector<CellValue>& cells = grid.Column(key.col);
  PerValue<std::uint32_t> known;
  std::vector<CellValue> values;
  for (auto cell = cells.begin() + 1; cell != cells.end(); ++cell) {
    if (std::exchange(known[*cell], 1) == 0) values.push_back(*cell);
  }
  SortValues(grid, key, values);
  Ranks ranks;
  for (std::size_t at = 0; at < values.size(); ++at) {
    if (at > 0 && Compare(grid, key, values[at - 1], values[at]) != 0) ++ranks.count;
    known[values[at]] = static_cast<std::uint32_t>(ranks.count);
  }
  ++ranks.count;
  ranks.ofRows.reserve(cells.size());
  for (auto cell = cells.begin() + 1; cell != cells.end(); ++cell) {
    ranks.ofRows.push_back(known[*cell]);
  }
  return ranks;
}

// Puts `order` (data rows from 0 on) in the order of the ranks; stable.
void SortByRank(std::vector<std::uint32_t>& order, const Ranks& ranks) {
  std::vector<std::uint32_t> begins(ranks.count + 1);
  for (const std::uint32_t rank : ranks.ofRows) ++begins[rank + 1];
  std::partial_sum(begins.begin(), begins.end(), begins.begin());
  std::vector<std::uint32_t> sorted(order.size());
  for (const std::uint32_t row : order) sorted[begins[ranks.ofRows[row]]++] = row;
  order.swap(sorted);
}

}  // namespace

void SortGrid(FlexGrid& grid, const std::vector<SortKey>& keys) {
  // Every step of the day sorts; only the first finds the rows in another order.
  if (IsSorted(grid, keys)) return;
  std::vector<std::uint32_t> order(static_cast<std::size_t>(grid.Rows()) - 1);
  std::iota(order.begin(), order.end(), 0u);
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) SortByRank(order, RanksOf(grid, *key));
  for (std::uint32_t& row : order) ++row;
  grid.ReorderRows(order);
}

}  // namespace tallyrun
