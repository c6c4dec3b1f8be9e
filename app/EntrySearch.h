// Finding a row of the entry sheet by what one of its columns contains.
#pragma once

#include <optional>
#include <string_view>

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// A column that can be searched, as the search box offers it.
struct SearchColumn {
  const char* caption;
  int col;
};

inline constexpr int kSearchColumnCount = 6;
extern const SearchColumn kSearchColumns[kSearchColumnCount];

// The first row after the current one whose cell in the column contains `text` in any letter
// case; past the last row it goes on at row 1, up to the row before the current one. The current
// row itself is never looked at.
std::optional<int> FindEntry(const FlexGrid& grid, int col, std::string_view text);

// Makes the found row current at column 0 and scrolls it to the top.
void ShowFoundEntry(FlexGrid& grid, int row);

}  // namespace tallyrun
