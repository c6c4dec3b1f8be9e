// The tilde table text of entry files, list files and list backups, from a grid and into one: a
// line per row, captions first, cells joined by "~", lines by CR LF, a lone CR at the end.
#pragma once

#include "core/files/LineBlocks.h"
#include "core/grid/FlexGrid.h"
#include "core/text/TextWriter.h"

namespace tallyrun {

inline constexpr char kCellMark = '~';

// Hands the grid's text on piece by piece. A CR LF inside a cell is left out.
void WriteTildeTable(const FlexGrid& grid, const TextSink& sink);

// Gives the grid a row per line of the file and fills it, each piece trimmed of blanks; cells for
// which a line has no piece stay as they are; columns widen to fit. Raises SubscriptOutOfRange at a
// line with more pieces than columns, what was filled until then staying, and InvalidCall for an
// empty file.
void ReadTildeTable(LineBlocks& blocks, FlexGrid& grid);

}  // namespace tallyrun
