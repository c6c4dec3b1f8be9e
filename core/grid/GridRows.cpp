#include "core/grid/GridRows.h"

#include <algorithm>
#include <string>

#include "core/Platform.h"

namespace tallyrun {
namespace {

void BlankRow(FlexGrid& grid, int row) {
  for (int col = 1; col < grid.Cols(); ++col) grid.SetCell(row, col, CellValue::Empty);
}

}  // namespace

void FitColumnWidth(FlexGrid& grid, int row, int col, int margin) {
  CellScratch scratch;
  const int needed = grid.Measurer().WidthOf(grid.View(row, col, scratch)) + margin;
  if (grid.ColWidth(col) < needed) grid.SetColWidth(col, needed);
}

bool IsRowBlank(const FlexGrid& grid, int row) {
  for (int col = 1; col < grid.Cols(); ++col) {
    if (!grid.IsBlank(grid.Cell(row, col))) return false;
  }
  return true;
}

bool IsGridEmpty(const FlexGrid& grid) {
  return grid.Rows() < 2 || (grid.Rows() == 2 && IsRowBlank(grid, 1));
}

void AddEntryRow(FlexGrid& grid) {
  grid.SetRows(grid.Rows() + 1);
  const int added = grid.Rows() - 1;
  grid.SetText(added, 0, std::to_string(added));
  grid.SetRow(added);
  grid.SetTopRow(added);
  grid.SetCol(1);
}

void DeleteSelectedRows(FlexGrid& grid) {
  if (IsGridEmpty(grid)) return;
  if (!Ask("Are you sure to delete the selected record(s)?", "Delete Confirmation",
           MessageIcon::Critical)) {
    return;
  }
  const int top = std::min(grid.Row(), grid.RowSel());
  const int bottom = std::max(grid.Row(), grid.RowSel());
  const int lastRow = grid.Rows() - 1;
  if (lastRow == 1 || (top == 1 && bottom == lastRow)) {
    grid.SetRows(2);
    BlankRow(grid, 1);
  } else if (bottom == lastRow) {
    grid.SetRows(top);
  } else {
    grid.RemoveRows(top, bottom);
    RenumberRows(grid, top);
  }
}

void ClearEntryGrid(FlexGrid& grid) {
  grid.SetRows(2);
  grid.SetText(1, 0, "1");
  BlankRow(grid, 1);
}

void RenumberRows(FlexGrid& grid, int first) {
  const auto serials = grid.ColumnCells(0);
  for (int row = first; row < grid.Rows(); ++row) {
    serials[static_cast<std::size_t>(row)] = NumberCell(row);
  }
}

}  // namespace tallyrun
