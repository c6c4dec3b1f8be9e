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

class RowSort {
 public:
  RowSort(const FlexGrid& grid, const std::vector<SortKey>& keys)
      : grid_(grid), keys_(keys), ranks_(ColumnRanks::Of(grid, keys)) {
    items_.resize(static_cast<std::size_t>(grid.Rows() - 1));
    for (std::uint32_t at = 0; at < items_.size(); ++at) items_[at].item = at + 1;
  }

  std::vector<std::uint32_t> Order() {
    for (std::size_t end = keys_.size(); end > 0;) {
      const std::size_t begin = FirstKeyBefore(end);
      for (KeyedItem& each : items_) each.key = KeyOf(static_cast<int>(each.item), begin, end);
      RadixSort(items_);
      end = begin;
    }
    std::vector<std::uint32_t> order;
    order.reserve(items_.size());
    for (const KeyedItem& each : items_) order.push_back(each.item);
    return order;
  }

 private:
  // The first of the keys before `end` whose places fit into one word together.
  std::size_t FirstKeyBefore(std::size_t end) const {
    int bits = 0;
    while (end > 0 && bits + ranks_[end - 1].Bits() <= 64) bits += ranks_[--end].Bits();
    return end;
  }

  // The row's places in these keys as one number, the first key's being the major part.
  std::uint64_t KeyOf(int row, std::size_t begin, std::size_t end) const {
    const auto cells = grid_.RowCells(row);
    std::uint64_t word = 0;
    for (std::size_t key = begin; key < end; ++key) {
      const CellValue value = cells[static_cast<std::size_t>(keys_[key].col)];
      word = word << ranks_[key].Bits() | ranks_[key].Of(value);
    }
    return word;
  }

  const FlexGrid& grid_;
  const std::vector<SortKey>& keys_;
  const std::vector<ColumnRanks> ranks_;
  std::vector<KeyedItem> items_;  // by row
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
