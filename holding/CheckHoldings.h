// The holding check: the sheet's quantities against the depository's holding file, and the rule
// that rows are summarised before they are sent. Asks and tells through the platform; what it
// needs of its windows it is given.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/BusyScope.h"
#include "core/grid/FlexGrid.h"
#include "holding/HoldingBalances.h"

namespace tallyrun {

// The problems of the last check, a line each; emptied when a check begins.
extern std::string HoldingMessage;

// What a check works on. Nothing is owned.
struct HoldingCheck {
  FlexGrid& entries;
  BusyWindow& window;                        // its own again on every way out
  std::function<void()> repaintEntries;      // paints the grid at once
  std::function<void()> showHoldingMessage;  // shows HoldingMessage in a fresh modal window
};

// Asks for the holding file and checks every row against it. True (stop) when the clerk
// cancelled, when a row fails and when the check could not be made; each has been shown.
bool CheckHoldings(const HoldingCheck& check);

// Checks every row against the file at `path`; as above. The file is read once.
bool CheckHoldingFile(const HoldingCheck& check, const std::string& path);

// True when `balance` covers `quantity`, which is checked for a row of the sheet; else adds the
// reason to HoldingMessage. Raises TypeMismatch or Overflow when the balance is no number.
bool CompareHolding(const FlexGrid& entries, int row, std::int32_t quantity,
                    const HoldingBalance& balance);

// True (stop), after a message, when two neighbouring rows have the same BO ID and ISIN; selects
// the first of them.
bool CheckSummarized(const HoldingCheck& check);

}  // namespace tallyrun
