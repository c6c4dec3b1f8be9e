// Sorting a grid's data rows by several columns at once.
#pragma once

#include <vector>

#include "core/grid/FlexGrid.h"

namespace tallyrun {

struct SortKey {
  int col = 0;
  bool descending = false;
  bool numeric = false;  // compare as numbers; a text that is none counts as 0
};

// Stable; the first key is the major one. Whole rows move, serial numbers included.
void SortGrid(FlexGrid& grid, const std::vector<SortKey>& keys);

}  // namespace tallyrun
