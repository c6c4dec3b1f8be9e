#include "app/Summarize.h"

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "core/RuntimeError.h"
#include "core/entry/EntryRow.h"
#include "core/grid/ColumnFitter.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

std::int32_t QuantityOf(const FlexGrid& grid, CellValue quantity) {
  if (IsNumber(quantity)) return static_cast<std::int32_t>(NumberOf(quantity));
  CellScratch scratch;
  return ToInt32(grid.View(quantity, scratch));
}

std::int32_t Sum(std::int32_t left, std::int32_t right) {
  const std::int64_t sum = std::int64_t{left} + right;
  if (sum < std::numeric_limits<std::int32_t>::min() ||
      sum > std::numeric_limits<std::int32_t>::max()) {
    throw RuntimeError(ErrorKind::Overflow);
  }
  return static_cast<std::int32_t>(sum);
}

// Drops the rows marked as merged in one pass, however the merging ended. Serial numbers stay
// with their places.
class MergedRows {
 public:
  explicit MergedRows(FlexGrid& grid)
      : grid_(grid), merged_(static_cast<std::size_t>(grid.Rows()), false) {}
  MergedRows(const MergedRows&) = delete;
  MergedRows& operator=(const MergedRows&) = delete;

  void Mark(std::size_t row) { merged_[row] = true; }

  void Drop() {
    std::vector<std::uint32_t> kept;
    for (std::uint32_t row = 1; row < merged_.size(); ++row) {
      if (!merged_[row]) kept.push_back(row);
    }
    for (int col = 1; col < grid_.Cols(); ++col) {
      const auto cells = grid_.ColumnCells(col);
      for (std::size_t at = 0; at < kept.size(); ++at) cells[1 + at] = cells[kept[at]];
    }
    grid_.SetRows(1 + static_cast<int>(kept.size()));
  }

 private:
  FlexGrid& grid_;
  std::vector<bool> merged_;
};

void MergeUpward(FlexGrid& grid, MergedRows& merged) {
  ColumnFitter fitter(grid);
  const std::span<const CellValue> boIds = grid.ColumnCells(EntryColumn::kBoId);
  const std::span<const CellValue> isins = grid.ColumnCells(EntryColumn::kIsinCode);
  const std::span<CellValue> quantities = grid.ColumnCells(EntryColumn::kQuantity);
  for (std::size_t row = quantities.size() - 1; row > 1; --row) {
    if (boIds[row] != boIds[row - 1] || isins[row] != isins[row - 1]) continue;
    const CellValue sum = grid.InternNumber(
        Sum(QuantityOf(grid, quantities[row - 1]), QuantityOf(grid, quantities[row])));
    quantities[row - 1] = sum;
    fitter.Fit(EntryColumn::kQuantity, sum);
    merged.Mark(row);
  }
}

}  // namespace

void MergeEqualEntries(FlexGrid& grid) {
  MergedRows merged(grid);
  try {
    MergeUpward(grid, merged);
  } catch (...) {
    merged.Drop();
    throw;
  }
  merged.Drop();
}

}  // namespace tallyrun
