#include "core/grid/GridRows.h"

#include <algorithm>
#include <string>

#include "core/Platform.h"
#include "core/text/Characters.h"

namespace tallyrun {
namespace {

void BlankRow(FlexGrid& grid, int row) {
  for (int col = 1; col < grid.Cols(); ++col) grid.SetCell(row, col, CellValue::Empty);
}

}  // namespace

bool IsRowBlank(const FlexGrid& grid, int row) {
  for (int col = 1; col < grid.Cols(); ++col) {
    if (!Trim(grid.Text(row, col)).empty()) return false;
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
  for (int row = first; row < grid.Rows(); ++row) {
    grid.SetCell(row, 0, NumberCell(static_cast<std::uint32_t>(row)));
  }
}

}  // namespace tallyrun
