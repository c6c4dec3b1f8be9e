#include "app/CellPaste.h"

#include <algorithm>

#include "core/entry/EntryRow.h"
#include "core/grid/ColumnWidths.h"

namespace tallyrun {
namespace {

struct ColumnRange {
  int first;
  int last;
};

ColumnRange LinkedColumns(int col) {
  constexpr ColumnRange kGroups[] = {
      {EntryColumn::kClientCode, EntryColumn::kBoName},
      {EntryColumn::kScripId, EntryColumn::kIsinName},
  };
  for (const ColumnRange& group : kGroups) {
    if (col >= group.first && col <= group.last) return group;
  }
  return {col, col};
}

}  // namespace

void PasteIntoSelection(FlexGrid& grid, int sourceRow) {
  if (grid.Col() == EntryColumn::kSerial || sourceRow >= grid.Rows()) return;
  const ColumnRange cols = LinkedColumns(grid.Col());
  const int first = std::min(grid.Row(), grid.RowSel());
  const int last = std::max(grid.Row(), grid.RowSel());
  for (int row = first; row <= last; ++row) {
    for (int col = cols.first; col <= cols.last; ++col) {
      grid.SetCell(row, col, grid.Cell(sourceRow, col));
      FitColumnWidth(grid, row, col);
    }
  }
}

}  // namespace tallyrun
