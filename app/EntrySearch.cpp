#include "app/EntrySearch.h"

#include <string>
#include <vector>

#include "core/entry/EntryRow.h"
#include "core/text/Conversion.h"

namespace tallyrun {

const SearchColumn kSearchColumns[kSearchColumnCount] = {
    {"Client Code", EntryColumn::kClientCode}, {"BO ID", EntryColumn::kBoId},
    {"BO Name", EntryColumn::kBoName},         {"Scrip ID", EntryColumn::kScripId},
    {"ISIN Code", EntryColumn::kIsinCode},     {"ISIN Name", EntryColumn::kIsinName},
};

namespace {

// Whether a cell contains the wanted text, each distinct text being searched once.
class CellMatcher {
 public:
  CellMatcher(const FlexGrid& grid, std::string_view wanted)
      : grid_(grid), wanted_(ToLower(Trim(wanted))), known_(grid.DistinctTexts(), kUnknown) {}

  bool Matches(CellValue value) {
    if (IsNumber(value)) return Contains(value);
    char& known = known_[static_cast<std::size_t>(value)];
    if (known == kUnknown) known = Contains(value) ? kYes : kNo;
    return known == kYes;
  }

 private:
  static constexpr char kUnknown = 0;
  static constexpr char kYes = 1;
  static constexpr char kNo = 2;

  bool Contains(CellValue value) const {
    CellScratch scratch;
    const std::string_view text = grid_.View(value, scratch);
    if (IsNumber(value)) return text.find(wanted_) != text.npos;
    return ToLower(text).find(wanted_) != std::string::npos;
  }

  const FlexGrid& grid_;
  const std::string wanted_;
  std::vector<char> known_;
};

}  // namespace

int FindEntry(const FlexGrid& grid, int col, std::string_view text) {
  CellMatcher matcher(grid, text);
  for (int row = grid.Row() + 1; row < grid.Rows(); ++row) {
    if (matcher.Matches(grid.Cell(row, col))) return row;
  }
  for (int row = 1; row < grid.Row(); ++row) {
    if (matcher.Matches(grid.Cell(row, col))) return row;
  }
  return 0;
}

void ShowFoundEntry(FlexGrid& grid, int row) {
  grid.SetRow(row);
  grid.SetCol(0);
  grid.SetLeftCol(0);
  grid.SetTopRow(row);
}

}  // namespace tallyrun
