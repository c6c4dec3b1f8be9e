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

// What was typed as the column's rule reads it, and as the editor goes on showing it when the rule
// refuses it: trimmed, a quantity without its commas.
std::string TidiedCellText(int col, const std::string& typed);
// Takes the tidied text into the cell, completed as the column's rule says, and fills the cells
// that follow from it. False when the rule refused it and has told the clerk: the row is then as
// it was.
bool CommitCellText(FlexGrid& grid, int row, int col, std::string text, bool freeEntry);

}  // namespace tallyrun
