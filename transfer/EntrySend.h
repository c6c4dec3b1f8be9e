// One send of the day's entries. Its names and rows are taken once, when the checks have passed:
// what was checked is what is sent and archived, whatever the clerk does to the window while a
// transfer is waited for.
#pragma once

#include <string>

#include "core/BusyScope.h"
#include "core/grid/FlexGrid.h"
#include "core/text/Conversion.h"

namespace tallyrun {

struct EntrySend {
  // For the entry mode and the settings in force. `busyScope` must outlive the send.
  EntrySend(const FlexGrid& entries, const Date& entryDay, BusyScope& busyScope);

  BusyScope& busy;
  std::string day;            // "05-Jan-2010"
  std::string stem;           // "05-Jan-2010_PI_123456"
  std::string fileName;       // the same with ".txt"
  std::string workingFolder;  // with its trailing backslash
  std::string sheet;          // the rows as tilde table text
};

}  // namespace tallyrun
