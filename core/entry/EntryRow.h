// The entry sheet's columns and modes, and the names of the day's files: what every room that
// reads the sheet agrees on.
#pragma once

#include <array>
#include <string>

#include "core/text/Conversion.h"

namespace tallyrun {

namespace EntryColumn {
inline constexpr int kSerial = 0;
inline constexpr int kBrokerId = 1;
inline constexpr int kClearingBoid = 2;
inline constexpr int kTradeDate = 3;
inline constexpr int kDeliveryDate = 4;
inline constexpr int kClientCode = 5;
inline constexpr int kBoId = 6;
inline constexpr int kBoName = 7;
inline constexpr int kScripId = 8;
inline constexpr int kIsinCode = 9;
inline constexpr int kIsinName = 10;
inline constexpr int kQuantity = 11;
inline constexpr int kInternalRef = 12;
inline constexpr int kCount = 13;
}  // namespace EntryColumn

// The captions of row 0, left to right.
extern const std::array<const char*, EntryColumn::kCount> kEntryCaptions;

// What goes with a mode.
struct EntryModeTexts {
  std::string name;
  std::string code;             // in file names
  std::string importCaption;    // of the button that imports the trade file
  std::string referenceLetter;  // begins every Internal Ref. No.
  std::string tradeSide;        // of the trades it takes: clients deliver what they sold

  bool operator==(const EntryModeTexts&) const = default;
};

extern const EntryModeTexts kPayIn;
extern const EntryModeTexts kPayOut;

// The mode the sheet is in. Its texts are empty until the first mode is chosen.
extern EntryModeTexts EntryMode;

// "05-Jan-2010_PI_123456", the day's file name without its ending, for the mode in force.
std::string EntryFileStem(const Date& day);
// "05-Jan-2010_PI_123456.txt"
std::string EntryFileName(const Date& day);
// The same with the working folder before it.
std::string EntryFilePath(const Date& day);

}  // namespace tallyrun
