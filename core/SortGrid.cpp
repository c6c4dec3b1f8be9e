#include "core/SortGrid.h"

#include <string_view>
#include <utility>

#include "core/ColumnFitter.h"
#include "core/ColumnRanks.h"
#include "core/EntryRow.h"
#include "core/GridRows.h"
#include "core/RadixSort.h"

namespace tallyrun {
namespace {

// Below 0 when the value comes first in the key's order, 0 when neither does.
int Compare(const FlexGrid& grid, const SortKey& key, CellValue left, CellValue right) {
  if (left == right) return 0;
  if (key.descending) std::swap(left, right);
  if (key.numeric && IsNumber(left) && IsNumber(right)) return left < right ? -1 : 1;
  CellScratch leftScratch;
  CellScratch rightScratch;
  const std::string_view leftText = grid.View(left, leftScratch);
  const std::string_view rightText = grid.View(right, rightScratch);
  if (!key.numeric) return leftText.compare(rightText);
  const double leftNumber = SortingNumber(leftText);
  const double rightNumber = SortingNumber(rightText);
  return leftNumber < rightNumber ? -1 : leftNumber > rightNumber ? 1 : 0;
}

bool IsInOrder(const FlexGrid& grid, const std::vector<SortKey>& keys, int row) {
  for (const SortKey& key : keys) {
    const int order = Compare(grid, key, grid.Cell(row - 1, key.col), grid.Cell(row, key.col));
    if (order != 0) return order < 0;
  }
  return true;
}

// A sheet is sorted again by every step of the day and mostly is in order already.
bool IsSorted(const FlexGrid& grid, const std::vector<SortKey>& keys) {
  for (int row = 2; row < grid.Rows(); ++row) {
    if (!IsInOrder(grid, keys, row)) return false;
  }
  return true;
}

// The cells of the keys' columns, copied in one pass over the rows: every later pass then reads
// its column alone.
std::vector<std::vector<CellValue>> ColumnsOf(const FlexGrid& grid,
                                              const std::vector<SortKey>& keys) {
  std::vector<std::vector<CellValue>> columns(keys.size());
  for (auto& column : columns) column.reserve(static_cast<std::size_t>(grid.Rows() - 1));
  for (int row = 1; row < grid.Rows(); ++row) {
    const auto cells = grid.RowCells(row);
    for (std::size_t key = 0; key < keys.size(); ++key) {
      columns[key].push_back(cells[static_cast<std::size_t>(keys[key].col)]);
    }
  }
  return columns;
}

class RowSort {
 public:
  RowSort(const FlexGrid& grid, const std::vector<SortKey>& keys)
      : grid_(grid), keys_(keys), columns_(ColumnsOf(grid, keys)) {
    items_.resize(static_cast<std::size_t>(grid.Rows() - 1));
    for (std::uint32_t at = 0; at < items_.size(); ++at) items_[at].item = at;
  }

  std::vector<std::uint32_t> Order() {
    for (std::size_t key = keys_.size(); key > 0;) key = SortByKeysBefore(key);
    std::vector<std::uint32_t> order;
    order.reserve(items_.size());
    for (const KeyedItem& each : items_) order.push_back(each.item + 1);
    return order;
  }

 private:
  // Sorts by as many keys before `end` as fit into one word, the first being the major one, and
  // says which key they begin with.
  std::size_t SortByKeysBefore(std::size_t end) {
    for (KeyedItem& each : items_) each.key = 0;
    int bits = 0;
    for (; end > 0; --end) {
      const std::vector<CellValue>& column = columns_[end - 1];
      const ColumnRanks ranks(grid_, keys_[end - 1], column);
      if (ranks.Bits() == 0) continue;
      if (ranks.Bits() > 64 - bits) break;
      for (KeyedItem& each : items_) {
        each.key |= std::uint64_t{ranks.Of(column[each.item])} << bits;
      }
      bits += ranks.Bits();
    }
    RadixSort(items_);
    return end;
  }

  const FlexGrid& grid_;
  const std::vector<SortKey>& keys_;
  std::vector<std::vector<CellValue>> columns_;
  std::vector<KeyedItem> items_;  // by data row, from 0
};

}  // namespace

void SortGrid(FlexGrid& grid, const std::vector<SortKey>& keys) {
  if (!IsSorted(grid, keys)) grid.ReorderRows(RowSort(grid, keys).Order());
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
  ColumnFitter fitter(grid);
  for (int row = 1; row < grid.Rows(); ++row) {
    fitter.Fit(EntryColumn::kSerial, grid.Cell(row, EntryColumn::kSerial));
  }
}

}  // namespace tallyrun
