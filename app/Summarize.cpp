#include "app/Summarize.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "core/ColumnFitter.h"
#include "core/Conversion.h"
#include "core/EntryRow.h"
#include "core/RuntimeError.h"

namespace tallyrun {
namespace {

bool AreSameEntry(const FlexGrid& grid, int row, int other) {
  return grid.Cell(row, EntryColumn::kBoId) == grid.Cell(other, EntryColumn::kBoId) &&
         grid.Cell(row, EntryColumn::kIsinCode) == grid.Cell(other, EntryColumn::kIsinCode);
}

std::int32_t QuantityOf(const FlexGrid& grid, int row) {
  const CellValue quantity = grid.Cell(row, EntryColumn::kQuantity);
  if (IsNumber(quantity)) return static_cast<std::int32_t>(NumberOf(quantity));
  CellScratch scratch;
  return ToInt32(grid.View(row, EntryColumn::kQuantity, scratch));
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

  void Mark(int row) { merged_[static_cast<std::size_t>(row)] = true; }

  void Drop() {
    int kept = 1;
    for (int row = 1; row < grid_.Rows(); ++row) {
      if (merged_[static_cast<std::size_t>(row)]) continue;
      if (kept != row) {
        const auto cells = grid_.RowCells(row).subspan(1);
        std::copy(cells.begin(), cells.end(), grid_.RowCells(kept).begin() + 1);
      }
      ++kept;
    }
    grid_.SetRows(kept);
  }

 private:
  FlexGrid& grid_;
  std::vector<bool> merged_;
};

void MergeUpward(FlexGrid& grid, MergedRows& merged) {
  ColumnFitter fitter(grid);
  for (int row = grid.Rows() - 1; row > 1; --row) {
    if (!AreSameEntry(grid, row, row - 1)) continue;
    const std::int32_t quantity = Sum(QuantityOf(grid, row - 1), QuantityOf(grid, row));
    const CellValue cell = grid.InternNumber(quantity);
    grid.SetCell(row - 1, EntryColumn::kQuantity, cell);
    fitter.Fit(EntryColumn::kQuantity, cell);
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
