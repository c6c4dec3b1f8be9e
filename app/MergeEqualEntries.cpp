#include "app/MergeEqualEntries.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "core/RuntimeError.h"
#include "core/entry/EntryRow.h"
#include "core/grid/ColumnWidths.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

std::int32_t Sum(std::int32_t left, std::int32_t right) {
  const std::int64_t sum = std::int64_t{left} + right;
  if (sum < std::numeric_limits<std::int32_t>::min() ||
      sum > std::numeric_limits<std::int32_t>::max()) {
    throw RuntimeError(ErrorKind::Overflow);
  }
  return static_cast<std::int32_t>(sum);
}

bool IsSameEntry(const FlexGrid& grid, int row, int other) {
  return grid.Cell(row, EntryColumn::kBoId) == grid.Cell(other, EntryColumn::kBoId) &&
         grid.Cell(row, EntryColumn::kIsinCode) == grid.Cell(other, EntryColumn::kIsinCode);
}

// Adds the row's quantity to the row above; of two that are no number the upper one is told.
void AddToRowAbove(FlexGrid& grid, int row) {
  const std::int32_t above = ToInt32(grid.Text(row - 1, EntryColumn::kQuantity));
  const std::int32_t own = ToInt32(grid.Text(row, EntryColumn::kQuantity));
  grid.SetText(row - 1, EntryColumn::kQuantity, std::to_string(Sum(above, own)));
}

// Takes out the rows that are merged into those above, all at once, so that however many there are
// each row moves once. Serial numbers stay with their places.
class MergedRows {
 public:
  explicit MergedRows(FlexGrid& grid)
      : grid_(grid), isMerged_(static_cast<std::size_t>(grid.Rows())) {}

  void Mark(int row) { isMerged_[static_cast<std::size_t>(row)] = true; }

  void TakeOut() {
    int kept = 0;
    for (int row = 1; row < grid_.Rows(); ++row) {
      if (isMerged_[static_cast<std::size_t>(row)]) continue;
      ++kept;
      for (int col = 1; col < grid_.Cols(); ++col) grid_.SetCell(kept, col, grid_.Cell(row, col));
    }
    grid_.SetRows(1 + kept);
    FitColumn(grid_, EntryColumn::kQuantity);
  }

 private:
  FlexGrid& grid_;
  std::vector<bool> isMerged_;
};

}  // namespace

void MergeEqualEntries(FlexGrid& grid) {
  MergedRows merged(grid);
  try {
    for (int row = grid.Rows() - 1; row > 1; --row) {
      if (!IsSameEntry(grid, row - 1, row)) continue;
      AddToRowAbove(grid, row);
      merged.Mark(row);
    }
  } catch (...) {
    merged.TakeOut();
    throw;
  }
  merged.TakeOut();
}

}  // namespace tallyrun
