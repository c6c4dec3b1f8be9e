// What a clerk does to the rows of a grid: add, delete, clear, and whether there is anything in
// them. Row 0 holds the captions; column 0 the serial numbers.
#pragma once

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// True when there is no data row, or one whose cells from column 1 on are all blank.
bool IsGridEmpty(const FlexGrid& grid);
// True when every cell of the row from column 1 on is blank.
bool IsRowBlank(const FlexGrid& grid, int row);

// Appends a numbered row, makes it current at column 1 and scrolls it to the top.
void AddEntryRow(FlexGrid& grid);

// Asks, and on Yes deletes the selected rows and renumbers the rest; deleting all rows leaves
// one blank row. Shows nothing when the grid is empty.
void DeleteSelectedRows(FlexGrid& grid);

// One blank data row, numbered 1.
void ClearEntryGrid(FlexGrid& grid);

// Writes the row numbers into column 0 from `first` to the last row.
void RenumberRows(FlexGrid& grid, int first);

}  // namespace tallyrun
