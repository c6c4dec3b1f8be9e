// The order of the entry sheet: what belongs together stands together.
#pragma once

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// Sorts the data rows by BO ID, Client Code, ISIN Code and larger quantities first, and renumbers
// them.
void SortEntries(FlexGrid& grid);

}  // namespace tallyrun
