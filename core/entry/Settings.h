// The broker's settings: the record in force, the file beside the program, and the checks.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tallyrun {

struct BrokerSettings {
  std::string brokerId;        // 6 digits
  std::string clearingBoid;    // 16 digits
  std::string boidFormat;      // 16 digits; its leading part completes a short BO ID
  std::string backupLocation;  // the working folder, always with a trailing backslash

  bool operator==(const BrokerSettings&) const = default;
};

extern BrokerSettings Settings;

inline constexpr int kBrokerIdDigits = 6;
inline constexpr int kBoidDigits = 16;

// `folder` with a backslash at its end.
std::string WithTrailingBackslash(std::string folder);

// The fields that `text` (the contents of the settings file) gives; later lines win, unknown
// ones are passed over. Raises SubscriptOutOfRange at a line that is a key with no value, the
// fields read before it staying in `settings`.
void ReadSettingsText(std::string_view text, BrokerSettings& settings);
std::string SettingsText(const BrokerSettings& settings);

// Shows the settings dialog until it is closed; given by Main, so that nothing here knows of
// windows.
using SettingsDialog = std::function<void()>;

// Reads the settings file into `Settings`, checks every value (opening the dialog once for each
// bad one, ending the program when it stays bad) and loads both lists. Shows its own messages.
void LoadSettings(const SettingsDialog& showDialog);

// Writes `Settings` to the file and says so, or shows the error.
void SaveSettings();

// True when `value` is a number of exactly `digits` characters; else one message and false.
bool ValidateNumericField(std::string_view value, int digits, const std::string& caption);

// "Provide the Backup Location properly.", as the loader and the dialog both say it.
void TellInvalidBackupLocation();

// Loads both lists from the working folder.
void LoadLists();

}  // namespace tallyrun
