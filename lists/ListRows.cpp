#include "lists/ListRows.h"

#include "core/Platform.h"
#include "core/grid/GridRows.h"

namespace tallyrun {

std::optional<int> FindBlankRow(const FlexGrid& grid) {
  for (int row = 1; row < grid.Rows(); ++row) {
    if (IsRowBlank(grid, row)) return row;
  }
  return std::nullopt;
}

bool HasBlankRow(FlexGrid& grid) {
  const std::optional<int> row = FindBlankRow(grid);
  if (!row) return false;
  Tell("Blank row (row number " + std::to_string(*row) + ") cannot be saved.", "Blank Row Found.",
       MessageIcon::Critical);
  grid.SetTopRow(*row);
  grid.SelectRow(*row);
  return true;
}

std::optional<int> FindRowContaining(const FlexGrid& grid, std::string_view text) {
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int col = 1; col < grid.Cols(); ++col) {
      if (std::string_view(grid.Text(row, col)).find(text) != text.npos) return row;
    }
  }
  return std::nullopt;
}

void ShowFoundRow(FlexGrid& grid, int row) {
  constexpr int kLastHighlightedCol = 2;
  if (!grid.IsRowVisible(row)) grid.SetTopRow(row);
  grid.SetRow(row);
  grid.SetCol(0);
  grid.SetColSel(kLastHighlightedCol);
}

}  // namespace tallyrun
