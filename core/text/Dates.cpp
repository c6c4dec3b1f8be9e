// The dates of core/Conversion.h: reading them day first and writing them in English.
#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <optional>

#include "core/RuntimeError.h"
#include "core/text/Casing.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

constexpr std::array<std::string_view, 12> kMonthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};
constexpr std::size_t kShortName = 3;  // characters

// One part of a date text: a number, or the month that a name says.
struct Part {
  int value = 0;
  std::size_t digits = 0;  // 0 for a name

  bool IsName() const { return digits == 0; }
  bool IsFullYear() const { return digits == 4; }
};

// The parts in their order; none has more than three.
struct Parts {
  std::array<Part, 3> list;
  std::size_t count = 0;
};

std::optional<Part> ReadMonthName(std::string_view word) {
  const std::string lower = ToLower(word);
  for (std::size_t month = 0; month < kMonthNames.size(); ++month) {
    const std::string name = ToLower(kMonthNames[month]);
    if (lower == name || lower == name.substr(0, kShortName)) {
      return Part{static_cast<int>(month) + 1, 0};
    }
  }
  return std::nullopt;
}

std::optional<Part> ReadPart(std::string_view& text) {
  const auto lengthOf = [&text](bool (*isOne)(char)) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isOne) -
                                    text.begin());
  };
  if (const std::size_t length = lengthOf(IsDigit); length > 0) {
    if (length > 4) return std::nullopt;
    Part part{0, length};
    std::from_chars(text.data(), text.data() + length, part.value);
    text.remove_prefix(length);
    return part;
  }
  const std::size_t length = lengthOf(IsLetter);
  const auto month = ReadMonthName(text.substr(0, length));
  text.remove_prefix(length);
  return month;
}

// Blanks, or one mark with blanks around it.
bool TakeSeparator(std::string_view& text) {
  const std::size_t before = text.size();
  const auto takeBlanks = [&text] {
    while (!text.empty() && IsBlankOrTab(text.front())) text.remove_prefix(1);
  };
  takeBlanks();
  if (!text.empty() && (text.front() == '-' || text.front() == '/' || text.front() == ',')) {
    text.remove_prefix(1);
    takeBlanks();
  }
  return text.size() != before;
}

std::optional<Parts> ReadParts(std::string_view text) {
  text = WithoutBlanksAround(text);
  Parts parts;
  while (parts.count < parts.list.size()) {
    const auto part = ReadPart(text);
    if (!part) return std::nullopt;
    parts.list[parts.count++] = *part;
    if (text.empty()) return parts;
    if (!TakeSeparator(text)) return std::nullopt;
  }
  return std::nullopt;
}

std::optional<int> YearOf(const Part& part) {
  if (part.IsName()) return std::nullopt;
  if (part.digits <= 2) return part.value + (part.value < 30 ? 2000 : 1900);
  return part.value >= 100 ? std::optional(part.value) : std::nullopt;
}

std::optional<Date> DateFrom(int year, const Part& month, const Part& day) {
  if (day.IsName() || day.digits > 2 || month.digits > 2) return std::nullopt;
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month.value)),
                                         std::chrono::day(static_cast<unsigned>(day.value))};
  return date.ok() ? std::optional(Date{year, month.value, day.value}) : std::nullopt;
}

// The two parts beside the year, in the order that is tried first; the other way round is taken
// where that makes no sense.
std::optional<Date> DateInEitherOrder(int year, const Part& month, const Part& day) {
  if (const auto date = DateFrom(year, month, day)) return date;
  return DateFrom(year, day, month);  // NOLINT(readability-suspicious-call-argument)
}

int ThisYear() { return ThePlatform().Now().year; }

// `currentYear` is asked only where the text names no year.
template <class CurrentYear>
std::optional<Date> ReadDateWith(std::string_view text, CurrentYear currentYear) {
  const auto parts = ReadParts(text);
  if (!parts) return std::nullopt;
  const auto& [first, second, third] = parts->list;
  if (parts->count == 2) return DateInEitherOrder(currentYear(), second, first);
  if (parts->count != 3) return std::nullopt;
  const bool yearFirst = first.IsFullYear();
  const auto year = YearOf(yearFirst ? first : third);
  if (!year) return std::nullopt;
  return DateInEitherOrder(*year, second, yearFirst ? third : first);
}

void AppendNumber(std::string& out, int value, int digits) {
  std::array<char, 12> text;
  const char* const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  const std::string_view written(text.data(), static_cast<std::size_t>(end - text.data()));
  out.append(static_cast<std::size_t>(std::max(digits - static_cast<int>(written.size()), 0)), '0');
  out += written;
}

std::string Joined(std::initializer_list<std::pair<int, int>> numbers, char separator) {
  std::string out;
  for (const auto& [value, digits] : numbers) {
    if (!out.empty() && separator != '\0') out += separator;
    AppendNumber(out, value, digits);
  }
  return out;
}

std::string DayAndMonthName(const Date& date) {
  std::string out;
  AppendNumber(out, date.day, 2);
  out += '-';
  out += ShortMonthName(date.month);
  out += '-';
  return out;
}

// The locale's designator, or AM and PM where that holds what a file name or a line of a script
// can't carry.
std::string AmPmOf(int hour) {
  std::string designator = ThePlatform().AmPmDesignator(hour);
  std::string letters = designator;
  std::erase(letters, '.');
  if (IsAlphanumeric(letters)) return designator;
  return hour < 12 ? "AM" : "PM";
}

}  // namespace

std::string_view ShortMonthName(int month) {
  return kMonthNames.at(static_cast<std::size_t>(month - 1)).substr(0, kShortName);
}

Date DateOf(const ClockTime& time) { return {time.year, time.month, time.day}; }

std::optional<Date> ReadDate(std::string_view text, int currentYear) {
  return ReadDateWith(text, [currentYear] { return currentYear; });
}

Date ToDate(std::string_view text) {
  const auto date = ReadDateWith(text, ThisYear);
  if (!date) throw RuntimeError(ErrorKind::TypeMismatch);
  return *date;
}

bool IsDate(std::string_view text) { return ReadDateWith(text, ThisYear).has_value(); }

std::string FormatDdMmmYyyy(const Date& date) {
  std::string out = DayAndMonthName(date);
  AppendNumber(out, date.year, 4);
  return out;
}

std::string FormatDdMmmYy(const Date& date) {
  std::string out = DayAndMonthName(date);
  AppendNumber(out, date.year % 100, 2);
  return out;
}

std::string FormatDdMmYy(const Date& date) {
  return Joined({{date.day, 2}, {date.month, 2}, {date.year % 100, 2}}, '\0');
}

std::string FormatYyyyMmDd(const Date& date) {
  return Joined({{date.year, 4}, {date.month, 2}, {date.day, 2}}, '-');
}

std::string FormatHhMmSs(const ClockTime& time) {
  return Joined({{time.hour, 2}, {time.minute, 2}, {time.second, 2}}, '-');
}

std::string FormatHhMmSsAmPm(const ClockTime& time) {
  const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
  return Joined({{hour, 2}, {time.minute, 2}, {time.second, 2}}, '-') + AmPmOf(time.hour);
}

}  // namespace tallyrun
