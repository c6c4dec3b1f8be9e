// Rows of one account and one security made into one.
#pragma once

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// Merges every run of neighbouring data rows with the same BO ID and ISIN Code into its first
// row, whose other cells stay; quantities are added up from the bottom. Raises TypeMismatch at a
// quantity that is no number and Overflow past 32 bits; what was merged until then stays merged.
void MergeEqualEntries(FlexGrid& grid);

}  // namespace tallyrun
