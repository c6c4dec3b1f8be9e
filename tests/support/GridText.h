// Grids written and read as text in tests: rows of cells joined by "|".
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/grid/FlexGrid.h"

namespace tallyrun::testing {

// Replaces the data rows; each text holds the cells from column 0 on. Missing cells are empty.
void FillRows(FlexGrid& grid, const std::vector<std::string>& rows);

// The data rows in the same form, all columns.
std::vector<std::string> RowsOf(const FlexGrid& grid);

// The cells of one column, top to bottom.
std::vector<std::string> ColumnOf(const FlexGrid& grid, int col);

// A row of the entry sheet with the given columns set and all others empty.
std::string EntryCells(std::initializer_list<std::pair<int, std::string_view>> cells);

}  // namespace tallyrun::testing
