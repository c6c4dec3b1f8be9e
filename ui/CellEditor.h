// Editing a grid's current cell in place: a control laid exactly over what can be seen of it.
// What is typed there, and whether it is kept, is the form's business.
#pragma once

#include <string>

#include "ui/FlexGridControl.h"
#include "ui/TextBox.h"

namespace tallyrun {

// Moves the control over the current cell, wherever that stands now.
void PlaceOverCell(const FlexGridControl& grid, Control& editor);

// Scrolls the current cell into sight, lays the control over it, and shows it with the focus.
void ShowOverCell(FlexGridControl& grid, Control& editor);
// The same for a text box, with `text` in it, all of it selected.
void ShowOverCell(FlexGridControl& grid, TextBox& editor, const std::string& text);

// Hides the control. The grid gets the focus when the control had it; the view does not move.
void HideOverCell(FlexGridControl& grid, Control& editor);

}  // namespace tallyrun
