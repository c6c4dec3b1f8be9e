// The order of a column's values as whole numbers, so that a sort of rows compares no text: every
// distinct value is read once and put in its place among the others, whatever the number of rows.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "core/grid/FlexGrid.h"
#include "core/grid/SortGrid.h"

namespace tallyrun {

// What a numeric key compares: a text that is no number counts as 0.
double SortingNumber(std::string_view text);

class ColumnRanks {
 public:
  // Of no values; what an array is made of before it is filled.
  ColumnRanks() = default;
  // Of the data rows of the grid.
  ColumnRanks(const FlexGrid& grid, const SortKey& key);

  // The place of one of the column's values: less for what comes first, equal for what compares as
  // equal.
  std::uint32_t Of(CellValue value) const {
    if (!IsNumber(value)) return texts_[static_cast<std::size_t>(value)];
    if (areNumbersTheirRank_) return NumberOf(value) ^ flip_;
    return OfNumber(NumberOf(value));
  }
  // Bits that a place takes.
  int Bits() const { return bits_; }

  // The place of every text of the column by its number in the grid, kNone for all others; empty
  // when the column has no text. Of use for as long as the grid keeps its texts.
  static constexpr std::uint32_t kNone = UINT32_MAX;
  std::vector<std::uint32_t> TakeTexts() && { return std::move(texts_); }

 private:
  std::uint32_t OfNumber(std::uint32_t number) const;

  std::vector<std::uint32_t> texts_;        // by the text's number in the grid's pool
  std::vector<std::uint32_t> numbers_;      // those in the column, sorted, ...
  std::vector<std::uint32_t> numberRanks_;  // ... and the place of each
  bool areNumbersTheirRank_ = false;        // where the key is numeric and there is no text
  std::uint32_t flip_ = 0;                  // turns the order of such numbers round
  int bits_ = 0;
};

}  // namespace tallyrun
