// Copying a cell down the selected rows, together with the cells that belong to it.
#pragma once

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// Copies the cell of the current column in `sourceRow` into every selected row. The cells of an
// account (client code, BO ID, BO name) and of a security (scrip ID, ISIN code, ISIN name)
// travel together. A serial number is its row's own and is not pasted over. Does nothing when the
// source row is gone.
void PasteIntoSelection(FlexGrid& grid, int sourceRow);

}  // namespace tallyrun
