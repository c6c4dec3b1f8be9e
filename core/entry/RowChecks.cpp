#include "core/entry/RowChecks.h"

#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/entry/EntryRow.h"
#include "core/masterlists/Lookups.h"
#include "core/text/Characters.h"

namespace tallyrun {
namespace {

// The first data row whose text in `col` satisfies `wanted`.
template <class Wanted>
std::optional<int> FindRow(const FlexGrid& grid, int col, Wanted wanted) {
  for (int row = 1; row < grid.Rows(); ++row) {
    if (wanted(grid.Text(row, col))) return row;
  }
  return std::nullopt;
}

std::optional<int> FindBlankRow(const FlexGrid& grid, int col) {
  return FindRow(grid, col, [](std::string_view text) { return Trim(text).empty(); });
}

void ShowCell(FlexGrid& grid, int row, int col) {
  grid.SetRow(row);
  grid.SetCol(col);
  if (!grid.IsRowVisible(row)) grid.SetTopRow(row);
  if (col < grid.LeftCol()) grid.SetLeftCol(col);
}

void Refuse(const std::string& text, const std::string& title) {
  Tell(text, title, MessageIcon::Critical);
}

}  // namespace

bool CheckColumnFilled(const FlexGrid& grid, int col) {
  bool filled = false;
  RunTrapped([&] {
    const std::optional<int> row = FindBlankRow(grid, col);
    filled = !row;
    if (filled) return;
    const std::string caption = grid.Text(0, col);
    Refuse(caption + " is not given in row number " + std::to_string(*row) + ".",
           "Missing " + caption);
  });
  return filled;
}

std::optional<int> FindRowWithValue(const FlexGrid& grid, int col, std::string_view value) {
  return FindRow(grid, col, [value](std::string_view text) { return text == value; });
}

std::optional<int> FindRowNotStartingWith(const FlexGrid& grid, int col, std::string_view prefix) {
  return FindRow(grid, col, [prefix](std::string_view text) { return !text.starts_with(prefix); });
}

bool HasMissingField(FlexGrid& grid) {
  for (int col = 1; col < grid.Cols(); ++col) {
    if (CheckColumnFilled(grid, col)) continue;
    const std::optional<int> row = FindBlankRow(grid, col);
    if (row) ShowCell(grid, *row, col);  // none when the check itself failed
    return true;
  }
  return false;
}

bool HasUnknownBoid(const FlexGrid& grid) {
  const std::optional<int> row = FindRowWithValue(grid, EntryColumn::kBoName, kBoNameNotFound);
  if (!row) return false;
  Refuse("BOID is not entered correctly in row number " + std::to_string(*row) + ".",
         "Invalid BOID");
  return true;
}

bool HasUnknownIsin(const FlexGrid& grid) {
  const std::optional<int> row = FindRowWithValue(grid, EntryColumn::kIsinName, kIsinNameNotFound);
  if (!row) return false;
  Refuse("ISIN Code is not entered correctly in row number " + std::to_string(*row) + ".",
         "Invalid ISIN Code");
  return true;
}

bool HasWrongInternalRefPrefix(const FlexGrid& grid) {
  const std::string& prefix = EntryMode.referenceLetter;
  const std::optional<int> row = FindRowNotStartingWith(grid, EntryColumn::kInternalRef, prefix);
  if (!row) return false;
  Refuse("For " + EntryMode.name + " entries Internal Ref. No. must start with \"" + prefix +
             "\" .\r\nCheck row number " + std::to_string(*row) + ".",
         "Invalid Internal Ref. No.");
  return true;
}

}  // namespace tallyrun
