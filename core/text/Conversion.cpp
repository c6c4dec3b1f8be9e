#include "core/text/Conversion.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

#include "core/RuntimeError.h"
#include "core/text/Casing.h"

namespace tallyrun {
namespace {

enum class Reading { Number, NoNumber, TooLarge };

std::string_view WithoutLeadingBlanks(std::string_view text) {
  while (!text.empty() && IsBlankOrTab(text.front())) text.remove_prefix(1);
  return text;
}

bool TakeFront(std::string_view& text, char wanted) {
  if (text.empty() || text.front() != wanted) return false;
  text.remove_prefix(1);
  return true;
}

bool TakeBack(std::string_view& text, char wanted) {
  if (text.empty() || text.back() != wanted) return false;
  text.remove_suffix(1);
  return true;
}

// True when a number too small or too large for a double is the latter: its first digit that is
// not 0 stands above the point once the exponent is counted in.
bool IsAboveOne(std::string_view digits) {
  const std::size_t exponentMark = digits.find_first_of("eE");
  const std::string_view mantissa = digits.substr(0, exponentMark);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of("123456789");
  long long exponent = 0;
  if (exponentMark != std::string_view::npos) {
    std::string_view tail = digits.substr(exponentMark + 1);
    TakeFront(tail, '+');
    const auto result = std::from_chars(tail.data(), tail.data() + tail.size(), exponent);
    if (result.ec != std::errc()) return tail.front() != '-';
  }
  return exponent > static_cast<long long>(first) - static_cast<long long>(point);
}

// What follows the "&": "H" and hexadecimal digits, or "O" and octal ones.
Reading ReadBased(std::string_view text, double& value) {
  int base = 8;
  if (TakeFront(text, 'H') || TakeFront(text, 'h')) {
    base = 16;
  } else if (!TakeFront(text, 'O') && !TakeFront(text, 'o')) {
    return Reading::NoNumber;
  }
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, base);
  if (result.ptr != end || result.ec == std::errc::invalid_argument) return Reading::NoNumber;
  if (result.ec == std::errc::result_out_of_range) return Reading::TooLarge;
  value = static_cast<double>(number);
  return Reading::Number;
}

// Digits with commas behind the first and one point, and an exponent: nothing else.
Reading ReadPlain(std::string_view text, double& value) {
  std::string withoutCommas;
  std::size_t at = 0;
  bool anyDigit = false;
  bool anyComma = false;
  for (; at < text.size() && (IsDigit(text[at]) || (anyDigit && text[at] == ',')); ++at) {
    anyDigit = true;
    anyComma = anyComma || text[at] == ',';
  }
  const std::size_t wholeEnd = at;
  if (at < text.size() && text[at] == '.') {
    for (++at; at < text.size() && IsDigit(text[at]); ++at) anyDigit = true;
  }
  if (!anyDigit) return Reading::NoNumber;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    if (at == text.size()) return Reading::NoNumber;
    while (at < text.size() && IsDigit(text[at])) ++at;
  }
  if (at != text.size()) return Reading::NoNumber;

  if (anyComma) {
    for (const char c : text.substr(0, wholeEnd)) {
      if (c != ',') withoutCommas += c;
    }
    withoutCommas += text.substr(wholeEnd);
    text = withoutCommas;
  }
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (IsAboveOne(text)) return Reading::TooLarge;
    value = 0;
  }
  return Reading::Number;
}

// What nearly every quantity is: digits alone, few enough that a double holds them exactly.
std::optional<double> ReadDigits(std::string_view text) {
  constexpr std::size_t kExactDigits = 15;
  if (text.empty() || text.size() > kExactDigits) return std::nullopt;
  std::int64_t number = 0;
  for (const char c : text) {
    if (!IsDigit(c)) return std::nullopt;
    number = number * 10 + (c - '0');
  }
  return static_cast<double>(number);
}

// Leaves the sign, the "$" and the parentheses off and reads what is between them.
Reading ReadNumber(std::string_view text, double& value) {
  if (const auto digits = ReadDigits(text)) {
    value = *digits;
    return Reading::Number;
  }
  text = WithoutBlanksAround(text);
  if (TakeFront(text, '&')) return ReadBased(text, value);

  bool negative = false;
  const bool dollarFirst = TakeFront(text, '$');
  text = WithoutLeadingBlanks(text);
  if (TakeFront(text, '(')) {
    negative = true;
    if (!TakeBack(text, ')')) return Reading::NoNumber;
  } else if (TakeFront(text, '-') || TakeBack(text, '-')) {
    negative = true;
  } else if (!TakeFront(text, '+')) {
    TakeBack(text, '+');
  }
  text = WithoutBlanksAround(text);
  if (!dollarFirst && TakeFront(text, '$')) text = WithoutLeadingBlanks(text);

  const Reading reading = ReadPlain(text, value);
  if (negative) value = -value;
  return reading;
}

}  // namespace

std::string ToLower(std::string_view text) {
  const CaseTable& table = LowerCaseTable();
  std::string lower(text);
  for (char& character : lower) character = FoldCase(table, character);
  return lower;
}

bool IsNumeric(std::string_view text) {
  double value = 0;
  return ReadNumber(text, value) == Reading::Number;
}

double ToDouble(std::string_view text) {
  double value = 0;
  switch (ReadNumber(text, value)) {
    case Reading::NoNumber:
      throw RuntimeError(ErrorKind::TypeMismatch);
    case Reading::TooLarge:
      throw RuntimeError(ErrorKind::Overflow);
    case Reading::Number:
      break;
  }
  return value;
}

std::int32_t ToInt32(std::string_view text) { return RoundToInt32(ToDouble(text)); }

std::int32_t RoundToInt32(double value) {
  // The processor's own rounding, to nearest and half to even, is never changed.
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    throw RuntimeError(ErrorKind::Overflow);
  }
  return static_cast<std::int32_t>(rounded);
}

}  // namespace tallyrun
