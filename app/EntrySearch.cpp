#include "app/EntrySearch.h"

#include <string>

#include "core/entry/EntryRow.h"
#include "core/grid/PerValue.h"
#include "core/text/Conversion.h"

namespace tallyrun {

const SearchColumn kSearchColumns[kSearchColumnCount] = {
    {"Client Code", EntryColumn::kClientCode}, {"BO ID", EntryColumn::kBoId},
    {"BO Name", EntryColumn::kBoName},         {"Scrip ID", EntryColumn::kScripId},
    {"ISIN Code", EntryColumn::kIsinCode},     {"ISIN Name", EntryColumn::kIsinName},
};

namespace {

// Whether a cell contains the wanted text, each distinct cell being searched once.
class CellMatcher {
 public:
  CellMatcher(const FlexGrid& grid, std::string_view wanted)
      : grid_(grid), wanted_(ToLower(Trim(wanted))) {}

  bool Matches(CellValue value) {
    std::optional<bool>& known = known_[value];
    if (!known) known = ToLower(grid_.Text(value)).find(wanted_) != std::string::npos;
    return *known;
  }

 private:
  const FlexGrid& grid_;
  const std::string wanted_;
  PerValue<std::optional<bool>> known_;
};

}  // namespace

std::optional<int> FindEntry(const FlexGrid& grid, int col, std::string_view text) {
  CellMatcher matcher(grid, text);
  for (int row = grid.Row() + 1; row < grid.Rows(); ++row) {
    if (matcher.Matches(grid.Cell(row, col))) return row;
  }
  for (int row = 1; row < grid.Row(); ++row) {
    if (matcher.Matches(grid.Cell(row, col))) return row;
  }
  return std::nullopt;
}

void ShowFoundEntry(FlexGrid& grid, int row) {
  grid.SetRow(row);
  grid.SetCol(0);
  grid.SetLeftCol(0);
  grid.SetTopRow(row);
}

}  // namespace tallyrun
