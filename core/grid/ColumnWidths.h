// Widening a grid's columns to what their cells hold. Columns are never narrowed.
#pragma once

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// Added to a text's width wherever a column is fitted to it, in twips.
inline constexpr int kCellMargin = 200;

// Widens the column to the cell's text plus `margin` twips.
void FitColumnWidth(FlexGrid& grid, int row, int col, int margin = kCellMargin);

// The same for every cell of the column, captions included, and of every column.
void FitColumn(FlexGrid& grid, int col);
void FitAllColumns(FlexGrid& grid);

}  // namespace tallyrun
