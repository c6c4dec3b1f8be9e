// Widens columns for many cells at once: FitColumnWidth for a pass over a whole sheet. A text is
// measured once per column however many rows hold it, and a number only while wider numbers than
// those before may come.
#pragma once

#include <cstdint>
#include <vector>

#include "core/grid/FlexGrid.h"
#include "core/grid/GridRows.h"

namespace tallyrun {

// Lives for one pass; the grid's rows and columns must not be resized meanwhile, nor its columns
// narrowed.
class ColumnFitter {
 public:
  explicit ColumnFitter(FlexGrid& grid, int margin = kCellMargin)
      : grid_(grid), margin_(margin), columns_(static_cast<std::size_t>(grid.Cols())) {}

  // Widens the column for a cell that holds `value`.
  void Fit(int col, CellValue value) {
    Column& column = columns_[static_cast<std::size_t>(col)];
    if (IsNumber(value)) {
      if (NumberOf(value) >= column.numbersBelow) FitNumber(col, column, value);
    } else if (!IsMarked(column, static_cast<std::uint32_t>(value))) {
      FitText(col, column, value);
    }
  }

 private:
  struct Column {
    std::uint32_t numbersBelow = 0;      // all numbers below this one are known to fit
    std::vector<std::uint64_t> fitting;  // a bit per text of the grid's pool
  };

  static bool IsMarked(const Column& column, std::uint32_t text) {
    const std::size_t word = text / 64;
    return word < column.fitting.size() && (column.fitting[word] >> (text % 64) & 1) != 0;
  }
  void FitNumber(int col, Column& column, CellValue number);
  void FitText(int col, Column& column, CellValue text);
  void Widen(int col, CellValue value);

  FlexGrid& grid_;
  const int margin_;
  std::vector<Column> columns_;
};

}  // namespace tallyrun
