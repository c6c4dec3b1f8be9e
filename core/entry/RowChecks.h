// The checks that guard a send. Each shows its own message and never changes a cell.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// False, after a message, at the first data row whose cell in the column is blank.
bool CheckColumnFilled(const FlexGrid& grid, int col);
// The first data row whose cell is exactly `value`.
std::optional<int> FindRowWithValue(const FlexGrid& grid, int col, std::string_view value);
// The first data row whose cell does not begin with `prefix`.
std::optional<int> FindRowNotStartingWith(const FlexGrid& grid, int col, std::string_view prefix);

// Each is true when it found a fault and has told the clerk.
bool HasMissingField(FlexGrid& grid);  // makes the faulty column current
bool HasUnknownBoid(const FlexGrid& grid);
bool HasUnknownIsin(const FlexGrid& grid);
bool HasWrongInternalRefPrefix(const FlexGrid& grid);

}  // namespace tallyrun
