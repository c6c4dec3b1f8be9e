// The broker's trade file: what its name says and how its lines become rows of the sheet.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/entry/EntryRow.h"
#include "core/grid/FlexGrid.h"
#include "core/text/Conversion.h"

namespace tallyrun {

struct TradeFileName {
  EntryModeTexts mode;
  Date day;
};

// What the name of the file at `path` ("payin_05-01-2010.txt") says; nothing when it begins with
// neither "payin_" nor "payout_". Raises TypeMismatch when its date is none.
std::optional<TradeFileName> ReadTradeFileName(const std::string& path);

// Fills the sheet with the file's trades of one side ("B" or "S"), after asking when there are rows
// to lose; false when the clerk would rather keep them. Raises the file's error and what
// FillFromTrades does.
bool LoadTradeFile(FlexGrid& grid, const std::string& path, const std::string& side);

// The same for the file's text and an empty sheet. Raises SubscriptOutOfRange at a line too short
// for its fields and TypeMismatch at a trade date that is none; the rows filled so far stay, or the
// blank row when there are none.
void FillFromTrades(std::string_view text, std::string_view side, FlexGrid& grid);

}  // namespace tallyrun
