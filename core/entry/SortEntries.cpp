#include "core/entry/SortEntries.h"

#include <vector>

#include "core/entry/EntryRow.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/GridRows.h"
#include "core/grid/SortGrid.h"

namespace tallyrun {

void SortEntries(FlexGrid& grid) {
  static const std::vector<SortKey> kKeys = {
      {EntryColumn::kBoId},
      {EntryColumn::kClientCode},
      {EntryColumn::kIsinCode},
      {.col = EntryColumn::kQuantity, .descending = true, .numeric = true},
  };
  SortGrid(grid, kKeys);
  RenumberRows(grid, 1);
  FitColumn(grid, EntryColumn::kSerial);
}

}  // namespace tallyrun
