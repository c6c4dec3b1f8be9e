#include "lists/ListRows.h"

#include "core/Platform.h"
#include "core/grid/GridRows.h"

namespace tallyrun {

int FindBlankRow(const FlexGrid& grid) {
  for (int row = 1; row < grid.Rows(); ++row) {
    if (IsRowBlank(grid, row)) return row;
  }
  return 0;
}

bool HasBlankRow(FlexGrid& grid) {
  const int row = FindBlankRow(grid);
  if (row == 0) return false;
  Tell("Blank row (row number " + std::to_string(row) + ") cannot be saved.", "Blank Row Found.",
       MessageIcon::Critical);
  grid.SetTopRow(row);
  grid.SelectRow(row);
  return true;
}

int FindRowContaining(const FlexGrid& grid, std::string_view text) {
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int col = 1; col < grid.Cols(); ++col) {
      if (std::string_view(grid.Text(row, col)).find(text) != text.npos) return row;
    }
  }
  return 0;
}

void ShowFoundRow(FlexGrid& grid, int row) {
  constexpr int kLastHighlightedCol = 2;
  if (!grid.IsRowVisible(row)) grid.SetTopRow(row);
  grid.SetRow(row);
  grid.SetCol(0);
  grid.SetColSel(kLastHighlightedCol);
}

void TellNotInList(const std::string& kind) {
  // The title names BOs for the ISIN list too: clerks know the box by it.
  Tell("There is no such " + kind + " in the list.", "BO Not Found.", MessageIcon::Critical);
}

}  // namespace tallyrun
