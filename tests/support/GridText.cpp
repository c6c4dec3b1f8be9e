#include "tests/support/GridText.h"

#include <array>

#include "core/entry/EntryRow.h"

namespace tallyrun::testing {
namespace {

std::string Join(const std::vector<std::string>& cells) {
  std::string text;
  for (std::size_t i = 0; i < cells.size(); ++i) text += (i > 0 ? "|" : "") + cells[i];
  return text;
}

}  // namespace

void FillRows(FlexGrid& grid, const std::vector<std::string>& rows) {
  grid.SetRows(1);
  grid.SetRows(static_cast<int>(rows.size()) + 1);
  for (int row = 1; row < grid.Rows(); ++row) {
    std::string_view rest = rows[static_cast<std::size_t>(row) - 1];
    for (int col = 0; col < grid.Cols(); ++col) {
      const std::size_t end = rest.find('|');
      grid.SetText(row, col, rest.substr(0, end));
      rest = end == rest.npos ? std::string_view() : rest.substr(end + 1);
    }
  }
}

std::vector<std::string> RowsOf(const FlexGrid& grid) {
  std::vector<std::string> rows;
  for (int row = 1; row < grid.Rows(); ++row) {
    std::vector<std::string> cells;
    for (int col = 0; col < grid.Cols(); ++col) cells.push_back(grid.Text(row, col));
    rows.push_back(Join(cells));
  }
  return rows;
}

std::vector<std::string> ColumnOf(const FlexGrid& grid, int col) {
  std::vector<std::string> cells;
  for (int row = 1; row < grid.Rows(); ++row) cells.push_back(grid.Text(row, col));
  return cells;
}

std::string EntryCells(std::initializer_list<std::pair<int, std::string_view>> cells) {
  std::vector<std::string> row(EntryColumn::kCount);
  for (const auto& [col, text] : cells) row[static_cast<std::size_t>(col)] = text;
  return Join(row);
}

}  // namespace tallyrun::testing
