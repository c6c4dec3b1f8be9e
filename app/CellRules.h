// What may be typed into a cell of the entry sheet, and what follows from it in the same row.
#pragma once

#include <optional>
#include <string>

#include "core/grid/FlexGrid.h"
#include "core/text/Conversion.h"

namespace tallyrun {

enum class EditTrigger { Enter, DoubleClick };

// Whether the column's cells open the editor. Clearing BOID opens on Enter alone.
bool IsEditable(int col, EditTrigger trigger, bool freeEntry);

// True for the two columns that are edited with a date picker.
bool IsDateColumn(int col);

// What the text editor starts with on the cell: its text or, when that is blank, the text of
// the cell above.
std::string EditorTextFor(const FlexGrid& grid, int row, int col);
// What the date picker starts with: the cell's date, else that of the cell above, else nothing.
std::optional<Date> EditorDateFor(const FlexGrid& grid, int row, int col);

// Takes the edited text into the cell and fills the cells that follow from it. `text` is trimmed
// and completed as the column's rule says. False when the rule refused it and has told the
// clerk: the cell is then as it was, and `text` is what the editor should go on showing.
bool CommitCellText(FlexGrid& grid, int row, int col, std::string& text, bool freeEntry);

}  // namespace tallyrun
