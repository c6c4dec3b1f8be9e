// What a cell holds, and what is read out of it. A cell is four bytes: the number of a text in the
// grid's table of distinct texts or, with the top bit set, a plain decimal number itself. So two
// cells of a grid are equal exactly when their texts are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace tallyrun {

// Valid within its grid, until rows are next taken from it or its columns are changed.
enum class CellValue : std::uint32_t { Empty = 0 };

constexpr bool IsNumber(CellValue value) {
  return (static_cast<std::uint32_t>(value) & 0x80000000u) != 0;
}
// The number that such a cell holds, and the cell for a number below a thousand million.
constexpr std::uint32_t NumberOf(CellValue value) {
  return static_cast<std::uint32_t>(value) & 0x7FFFFFFFu;
}
constexpr CellValue NumberCell(std::uint32_t number) {
  return static_cast<CellValue>(number | 0x80000000u);
}

// The cell for a text that is the plain decimal writing of a number below a thousand million:
// digits alone, no leading zero. Nothing for any other text.
std::optional<CellValue> PlainNumberCell(std::string_view text);

// A cell's text: a view of one that the grid keeps, good for as long as the cell's value is, or
// the digits of a number, which it owns.
class CellText {
 public:
  explicit CellText(std::string_view stored) : stored_(stored.data()), size_(stored.size()) {}
  explicit CellText(std::uint32_t number);

  operator std::string_view() const {
    return {stored_ != nullptr ? stored_ : digits_.data(), size_};
  }
  operator std::string() const { return std::string(std::string_view(*this)); }

  friend bool operator==(const CellText& text, std::string_view other) {
    return std::string_view(text) == other;
  }
  friend std::ostream& operator<<(std::ostream& out, const CellText& text) {
    return out << std::string_view(text);
  }

 private:
  const char* stored_ = nullptr;
  std::array<char, 10> digits_{};
  std::size_t size_;
};

}  // namespace tallyrun
