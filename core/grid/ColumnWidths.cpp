#include "core/grid/ColumnWidths.h"

#include <string>
#include <utility>

#include "core/grid/PerValue.h"

namespace tallyrun {
namespace {

void FitText(FlexGrid& grid, std::string_view text, int col, int margin) {
  const int needed = grid.Measurer().WidthOf(text) + margin;
  if (grid.ColWidth(col) < needed) grid.SetColWidth(col, needed);
}

}  // namespace

void FitColumnWidth(FlexGrid& grid, int row, int col, int margin) {
  FitText(grid, grid.Text(row, col), col, margin);
}

void FitColumn(FlexGrid& grid, int col) {
  PerValue<char> isMeasured;
  // Numbers are many, and a column wide enough for six of the widest digit fits all of six digits.
  std::uint32_t numbersBelow = 0;
  std::string widestDigits;
  CellValue above = CellValue::Empty;
  for (const CellValue cell : grid.Column(col)) {
    if (std::exchange(above, cell) == cell) continue;
    if (!IsNumber(cell)) {
      if (std::exchange(isMeasured[cell], 1) == 0) FitText(grid, grid.Text(cell), col, kCellMargin);
      continue;
    }
    if (NumberOf(cell) < numbersBelow) continue;
    const CellText digits = grid.Text(cell);
    FitText(grid, digits, col, kCellMargin);
    widestDigits.assign(std::string_view(digits).size(), grid.Measurer().WidestDigit());
    if (grid.Measurer().WidthOf(widestDigits) + kCellMargin > grid.ColWidth(col)) continue;
    numbersBelow = 1;
    for (std::size_t digit = 0; digit < widestDigits.size(); ++digit) numbersBelow *= 10;
  }
}

void FitAllColumns(FlexGrid& grid) {
  for (int col = 0; col < grid.Cols(); ++col) FitColumn(grid, col);
}

}  // namespace tallyrun
