#include "core/entry/EntryRow.h"

#include "core/entry/Settings.h"

namespace tallyrun {

const std::array<const char*, EntryColumn::kCount> kEntryCaptions = {
    "S/N",         "Broker ID", "Clearing BOID",    "Trade Date", "Delivery Date",
    "Client Code", "BO ID",     "BO Name",          "Scrip ID",   "ISIN Code",
    "ISIN Name",   "Quantity",  "Internal Ref. No."};

EntryModeTexts EntryMode;
const EntryModeTexts kPayIn = {"Pay In", "PI", "Load Payin", "I", "S"};
const EntryModeTexts kPayOut = {"Pay Out", "PO", "Load Payout", "O", "B"};

std::string EntryFileStem(const Date& day) {
  return FormatDdMmmYyyy(day) + "_" + EntryMode.code + "_" + Settings.brokerId;
}

std::string EntryFileName(const Date& day) { return EntryFileStem(day) + ".txt"; }

std::string EntryFilePath(const Date& day) { return Settings.backupLocation + EntryFileName(day); }

}  // namespace tallyrun
