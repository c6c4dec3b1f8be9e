// Finding rows of a master list in its grid: the blank one that must not be saved and the one a
// clerk searches for. Row 0 holds the captions; the S/N column is never looked at.
#pragma once

#include <optional>
#include <string_view>

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// The first data row whose cells are all blank.
std::optional<int> FindBlankRow(const FlexGrid& grid);

// True when there is a blank row; the first one is then shown, selected whole, and the clerk told
// that it cannot be saved.
bool HasBlankRow(FlexGrid& grid);

// The first data row with a cell that contains `text`, letter case counting.
std::optional<int> FindRowContaining(const FlexGrid& grid, std::string_view text);

// Scrolls to the row where it is out of sight, and selects it up to its second data column.
void ShowFoundRow(FlexGrid& grid, int row);

}  // namespace tallyrun
