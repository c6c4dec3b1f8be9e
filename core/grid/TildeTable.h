// The tilde table text of entry files, list files and list backups, from a grid and into one: a
// line per row, captions first, cells joined by "~", lines by CR LF, a lone CR at the end. Opens no
// file; the routines of core/files/modFileIO that do are defined here, as they take a grid.
#pragma once

#include <string>
#include <string_view>

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// The grid's text. A CR LF inside a cell is left out.
std::string GridToText(const FlexGrid& grid);

// Gives the grid a row per line of the text and fills it, each piece trimmed of blanks; cells for
// which a line has no piece stay as they are, and so does row 1 where there are captions alone;
// columns widen to fit. Raises SubscriptOutOfRange at a
// line with more pieces than columns, what was filled until then staying, and InvalidCall for an
// empty text.
void TextToGrid(std::string_view text, FlexGrid& grid);

}  // namespace tallyrun
