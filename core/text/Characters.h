// The few kinds of characters that our readers of numbers and dates know, whatever the locale.
#pragma once

#include <string_view>

namespace tallyrun {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
constexpr bool IsBlankOrTab(char c) { return c == ' ' || c == '\t'; }

// Without the blanks (0x20) at both ends; no other white space is touched.
constexpr std::string_view Trim(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// Without the blanks and tabs at both ends. A file's last cell may carry carriage returns; at the
// end they count as blanks.
constexpr std::string_view WithoutBlanksAround(std::string_view text) {
  while (!text.empty() && IsBlankOrTab(text.front())) text.remove_prefix(1);
  while (!text.empty() && (IsBlankOrTab(text.back()) || text.back() == '\r')) text.remove_suffix(1);
  return text;
}

}  // namespace tallyrun
