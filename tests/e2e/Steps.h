// The entry sheet's steps as the end-to-end tests take them, with what each must show.
#pragma once

#include <string>

#include "practice/clerk/ClerkDriver.h"
#include "tests/e2e/Workplace.h"

namespace tallyrun::testing {

// The main window, whatever its mode.
OpenWindow MainWindow(const ClerkDriver& clerk);

// One line of a trade file: what the program reads of it, among what it does not.
std::string Trade(const std::string& scrip, const std::string& side, const std::string& quantity,
                  const std::string& client, const std::string& date);

// Chooses a trade file that lies in the workplace.
void Import(ClerkDriver& clerk, const std::string& path);
void Summarize(ClerkDriver& clerk);
// Saves the sheet and goes through both boxes, which must name the mode and the date.
void Save(ClerkDriver& clerk, const std::string& mode, const std::string& date);
void Reload(ClerkDriver& clerk, const std::string& mode, const std::string& date);
// Makes the cell in this column of the first row current, opens its editor, types and confirms.
void EditFirstRow(ClerkDriver& clerk, int column, const std::string& text);
// Leaves by the Exit button; the program must end well.
void Exit(ClerkDriver& clerk);

Box Question(const std::string& title, const std::string& text);
Box Notice(const std::string& title, const std::string& text);

void PrintTo(const Box& box, std::ostream* out);

}  // namespace tallyrun::testing
