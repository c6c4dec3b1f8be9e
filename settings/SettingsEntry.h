// What the settings dialog does with the values that the clerk typed. Knows no window.
#pragma once

#include "core/entry/Settings.h"

namespace tallyrun {

// The four values without the blanks at their ends.
BrokerSettings TrimmedEntry(const BrokerSettings& entry);

// Checks the trimmed values in the order of the dialog, and when all are good makes them the
// settings in force, writes the file and loads the lists from the new location. Each step shows
// its own message; false when a value was refused, and nothing is changed then.
bool SaveEntry(const BrokerSettings& entry);

}  // namespace tallyrun
