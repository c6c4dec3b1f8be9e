#include "settings/SettingsEntry.h"

#include "core/files/modFileIO.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

bool IsValid(const BrokerSettings& entry) {
  if (!ValidateNumericField(entry.brokerId, kBrokerIdDigits, "Broker ID")) return false;
  if (!ValidateNumericField(entry.clearingBoid, kBoidDigits, "Clearing BOID")) return false;
  if (!ValidateNumericField(entry.boidFormat, kBoidDigits, "BOID Format")) return false;
  if (FolderExists(entry.backupLocation)) return true;
  TellInvalidBackupLocation();
  return false;
}

}  // namespace

BrokerSettings TrimmedEntry(const BrokerSettings& entry) {
  const auto trimmed = [](const std::string& text) { return std::string(Trim(text)); };
  return {trimmed(entry.brokerId), trimmed(entry.clearingBoid), trimmed(entry.boidFormat),
          trimmed(entry.backupLocation)};
}

bool SaveEntry(const BrokerSettings& entry) {
  if (!IsValid(entry)) return false;
  Settings = entry;
  Settings.backupLocation = WithTrailingBackslash(Settings.backupLocation);
  SaveSettings();
  LoadLists();
  return true;
}

}  // namespace tallyrun
