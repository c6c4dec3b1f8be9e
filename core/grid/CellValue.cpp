#include "core/grid/CellValue.h"

#include <charconv>

#include "core/text/Characters.h"

namespace tallyrun {

std::optional<CellValue> PlainNumberCell(std::string_view text) {
  constexpr std::size_t kMostDigits = 9;
  if (text.empty() || text.size() > kMostDigits) return std::nullopt;
  if (text.front() == '0' && text.size() > 1) return std::nullopt;
  std::uint32_t number = 0;
  for (const char c : text) {
    if (!IsDigit(c)) return std::nullopt;
    number = number * 10 + static_cast<std::uint32_t>(c - '0');
  }
  return NumberCell(number);
}

CellText::CellText(std::uint32_t number)
    : size_(static_cast<std::size_t>(
          std::to_chars(digits_.data(), digits_.data() + digits_.size(), number).ptr -
          digits_.data())) {}

}  // namespace tallyrun
