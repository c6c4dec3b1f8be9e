// Texts to numbers and dates and back, the same on every PC whatever its regional settings: an
// instruction must not change with them. English, day first.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/Platform.h"
#include "core/text/Characters.h"

namespace tallyrun {

// Every byte folded to lower case as the system code page does.
std::string ToLower(std::string_view text);

// True when the text reads as a number: blanks and tabs around, one sign before or after, or
// parentheses, a "$", "," between digits, one ".", an exponent; "&H" and "&O" numbers too.
bool IsNumeric(std::string_view text);
// The number, or TypeMismatch (Overflow past a double's range).
double ToDouble(std::string_view text);
// The number rounded half to even, or TypeMismatch, or Overflow outside 32 bits.
std::int32_t ToInt32(std::string_view text);
// The rounding of ToInt32 for a number already at hand.
std::int32_t RoundToInt32(double value);

// A calendar day. Month and day count from 1.
struct Date {
  int year = 0;
  int month = 0;
  int day = 0;

  auto operator<=>(const Date&) const = default;
};

Date DateOf(const ClockTime& time);

// The date that the text reads as, day first; nothing when it is no date. A missing year is
// `currentYear`.
std::optional<Date> ReadDate(std::string_view text, int currentYear);
// The same with today's year, raising TypeMismatch when the text is no date.
Date ToDate(std::string_view text);
bool IsDate(std::string_view text);

// "Jan" for 1.
std::string_view ShortMonthName(int month);

std::string FormatDdMmmYyyy(const Date& date);        // 05-Jan-2010
std::string FormatDdMmmYy(const Date& date);          // 05-Jan-10
std::string FormatDdMmYy(const Date& date);           // 050110
std::string FormatYyyyMmDd(const Date& date);         // 2010-01-05
std::string FormatHhMmSs(const ClockTime& time);      // 16-12-55
std::string FormatHhMmSsAmPm(const ClockTime& time);  // 04-12-55PM, in the locale's words

}  // namespace tallyrun
