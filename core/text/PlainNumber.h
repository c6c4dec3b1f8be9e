// The numbers that are kept as numbers rather than as texts, because they are written in one way
// only: so the text can be had back from the number.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tallyrun {

// The number below a thousand million that `text` is the plain decimal writing of: digits alone, no
// leading zero.
inline std::optional<std::uint32_t> PlainNumber(std::string_view text) {
  constexpr std::size_t kMostDigits = 9;
  if (text.empty() || text.size() > kMostDigits) return std::nullopt;
  if (text.front() == '0' && text.size() > 1) return std::nullopt;
  std::uint32_t number = 0;
  for (const char character : text) {
    const auto digit = static_cast<unsigned char>(character - '0');
    if (digit > 9) return std::nullopt;
    number = number * 10 + digit;
  }
  return number;
}

}  // namespace tallyrun
