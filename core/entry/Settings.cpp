#include "core/entry/Settings.h"

#include <utility>
#include <vector>

#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "core/masterlists/Lists.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

constexpr char kBrokerIdKey[] = "Broker ID";
constexpr char kClearingBoidKey[] = "Clearing BOID";
constexpr char kBoidFormatKey[] = "Default BOID Format";
constexpr char kBackupLocationKey[] = "Backup Location";
constexpr char kBoidFormatCaption[] = "BOID Format";
constexpr std::string_view kKeyEnd = " : ";

std::string SettingsPath() { return ThePlatform().ProgramFolder() + "\\Tallyrun.ini"; }

void ReadLine(std::string_view line, BrokerSettings& settings) {
  const std::vector<std::string_view> pieces = Split(line, kKeyEnd);
  if (pieces.empty()) return;
  const auto value = [&pieces] {
    if (pieces.size() < 2) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
    return std::string(pieces[1]);
  };
  const std::string_view key = pieces[0];
  if (key == kBrokerIdKey) {
    settings.brokerId = value();
  } else if (key == kClearingBoidKey) {
    settings.clearingBoid = value();
  } else if (key == kBoidFormatKey) {
    settings.boidFormat = value();
  } else if (key == kBackupLocationKey) {
    settings.backupLocation = WithTrailingBackslash(value());
  }
}

// The value is read anew after the dialog, which may have changed it.
void RequireNumericField(const std::string& value, int digits, const std::string& caption,
                         const SettingsDialog& showDialog) {
  if (ValidateNumericField(value, digits, caption)) return;
  showDialog();
  if (!ValidateNumericField(value, digits, caption)) ThePlatform().EndProgram();
}

void RequireBackupLocation(const SettingsDialog& showDialog) {
  if (FolderExists(Settings.backupLocation)) return;
  TellInvalidBackupLocation();
  showDialog();
  if (FolderExists(Settings.backupLocation)) return;
  Tell("Backup Location was not provided properly.", "Invalid Backup Location",
       MessageIcon::Critical);
  ThePlatform().EndProgram();
}

void ReadAndCheckSettings(const SettingsDialog& showDialog) {
  Settings = {};
  ReadSettingsText(ReadWholeFile(SettingsPath()), Settings);
  RequireNumericField(Settings.brokerId, kBrokerIdDigits, kBrokerIdKey, showDialog);
  RequireNumericField(Settings.clearingBoid, kBoidDigits, kClearingBoidKey, showDialog);
  RequireNumericField(Settings.boidFormat, kBoidDigits, kBoidFormatCaption, showDialog);
  RequireBackupLocation(showDialog);
  LoadLists();
}

}  // namespace

BrokerSettings Settings;

std::string WithTrailingBackslash(std::string folder) {
  if (!folder.ends_with('\\')) folder += '\\';
  return folder;
}

void ReadSettingsText(std::string_view text, BrokerSettings& settings) {
  for (const std::string_view line : Split(text, kLineEnd)) ReadLine(line, settings);
}

std::string SettingsText(const BrokerSettings& settings) {
  std::string text;
  const auto append = [&text](const char* key, const std::string& value) {
    if (!text.empty()) text += kLineEnd;
    text.append(key).append(kKeyEnd).append(value);
  };
  append(kBrokerIdKey, settings.brokerId);
  append(kClearingBoidKey, settings.clearingBoid);
  append(kBoidFormatKey, settings.boidFormat);
  append(kBackupLocationKey, settings.backupLocation);
  return text;
}

void LoadSettings(const SettingsDialog& showDialog) {
  try {
    ReadAndCheckSettings(showDialog);
  } catch (const RuntimeError& error) {
    if (error.Kind() != ErrorKind::FileNotFound) {
      ShowError(error);
      return;
    }
    Tell("Tallyrun initialization file not found.", "INI file not found.", MessageIcon::Critical);
    ThePlatform().EndProgram();
  } catch (const std::exception& error) {
    ShowError(error);
  }
}

void SaveSettings() {
  RunTrapped([] {
    WriteWholeFile(SettingsPath(), SettingsText(Settings));
    Tell("Settings saved successfully.", "Saved successfully.", MessageIcon::Information);
  });
}

bool ValidateNumericField(std::string_view value, int digits, const std::string& caption) {
  const auto refuse = [&caption](const std::string& text) {
    Tell(text, "Wrong " + caption, MessageIcon::Critical);
    return false;
  };
  const std::string count = std::to_string(digits);
  if (value.empty()) return refuse(caption + " cannot be blank.");
  if (value.size() != static_cast<std::size_t>(digits) || !IsNumeric(value)) {
    return refuse(caption + " should be a " + count + "-digit number.");
  }
  for (const char sign : {'-', '+', '.'}) {
    if (value.find(sign) == std::string_view::npos) continue;
    std::string text = "Invalid character in " + caption + ": '";
    text.append(1, sign).append("'.\r\nEnter the ").append(count);
    return refuse(text.append("-digit numeric ").append(caption).append("."));
  }
  return true;
}

void TellInvalidBackupLocation() {
  Tell("Provide the Backup Location properly.", "Invalid Backup Location", MessageIcon::Critical);
}

void LoadLists() {
  LoadBoList(Settings.backupLocation + "BO.txt");
  LoadIsinList(Settings.backupLocation + "ISIN.txt");
}

}  // namespace tallyrun
