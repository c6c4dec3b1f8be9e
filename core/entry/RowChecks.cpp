#include "core/entry/RowChecks.h"

#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/entry/EntryRow.h"
#include "core/masterlists/Lookups.h"

namespace tallyrun {
namespace {

constexpr int kNoRow = -1;

// The first data row whose text in `col` satisfies `wanted`, or kNoRow. Neighbouring rows often
// hold the same value, which is then looked at once.
template <class Wanted>
int FindRow(const FlexGrid& grid, int col, Wanted wanted) {
  CellScratch scratch;
  for (int row = 1; row < grid.Rows(); ++row) {
    const CellValue cell = grid.Cell(row, col);
    if (row > 1 && cell == grid.Cell(row - 1, col)) continue;
    if (wanted(grid.View(cell, scratch))) return row;
  }
  return kNoRow;
}

int FindBlankRow(const FlexGrid& grid, int col) {
  return FindRow(grid, col, [](std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
  });
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
    const int row = FindBlankRow(grid, col);
    filled = row == kNoRow;
    if (filled) return;
    const std::string caption = grid.Text(0, col);
    Refuse(caption + " is not given in row number " + std::to_string(row) + ".",
           "Missing " + caption);
  });
  return filled;
}

int FindRowWithValue(const FlexGrid& grid, int col, std::string_view value) {
  return FindRow(grid, col, [value](std::string_view text) { return text == value; });
}

int FindRowNotStartingWith(const FlexGrid& grid, int col, std::string_view prefix) {
  return FindRow(grid, col, [prefix](std::string_view text) { return !text.starts_with(prefix); });
}

bool HasMissingField(FlexGrid& grid) {
  for (int col = 1; col < grid.Cols(); ++col) {
    if (CheckColumnFilled(grid, col)) continue;
    const int row = FindBlankRow(grid, col);
    if (row != kNoRow) ShowCell(grid, row, col);  // none when the check itself failed
    return true;
  }
  return false;
}

bool HasUnknownBoid(const FlexGrid& grid) {
  const int row = FindRowWithValue(grid, EntryColumn::kBoName, kBoNameNotFound);
  if (row == kNoRow) return false;
  Refuse("BOID is not entered correctly in row number " + std::to_string(row) + ".",
         "Invalid BOID");
  return true;
}

bool HasUnknownIsin(const FlexGrid& grid) {
  const int row = FindRowWithValue(grid, EntryColumn::kIsinName, kIsinNameNotFound);
  if (row == kNoRow) return false;
  Refuse("ISIN Code is not entered correctly in row number " + std::to_string(row) + ".",
         "Invalid ISIN Code");
  return true;
}

bool HasWrongInternalRefPrefix(const FlexGrid& grid) {
  const std::string prefix = InternalRefPrefix();
  const int row = FindRowNotStartingWith(grid, EntryColumn::kInternalRef, prefix);
  if (row == kNoRow) return false;
  Refuse("For " + EntryMode.name + " entries Internal Ref. No. must start with \"" + prefix +
             "\" .\r\nCheck row number " + std::to_string(row) + ".",
         "Invalid Internal Ref. No.");
  return true;
}

}  // namespace tallyrun
