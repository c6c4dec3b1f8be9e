#include "core/grid/ColumnFitter.h"

#include <algorithm>

namespace tallyrun {

void ColumnFitter::Widen(int col, CellValue value) {
  CellScratch scratch;
  const int needed = grid_.Measurer().WidthOf(grid_.View(value, scratch)) + margin_;
  if (grid_.ColWidth(col) < needed) grid_.SetColWidth(col, needed);
}

void ColumnFitter::FitText(int col, Column& column, CellValue text) {
  const auto bit = static_cast<std::uint32_t>(text);
  if (bit / 64 >= column.fitting.size()) {
    column.fitting.resize(std::max<std::size_t>(grid_.DistinctTexts(), bit + 1) / 64 * 2 + 1);
  }
  column.fitting[bit / 64] |= std::uint64_t{1} << (bit % 64);
  // A column made for long texts needs no look at short ones.
  const int most = grid_.Measurer().MostWidthOf(grid_.TextOf(text).size());
  if (grid_.ColWidth(col) < most + margin_) Widen(col, text);
}

// A column that fits as many of the widest digit as the number has digits fits every number up to
// that many digits; digits are nearly always of one width, so that this is seen at the first.
void ColumnFitter::FitNumber(int col, Column& column, CellValue number) {
  Widen(col, number);
  std::string widest;
  std::uint32_t power = 1;
  do {
    widest += grid_.Measurer().WidestDigit();
    power *= 10;
  } while (power <= NumberOf(number));
  if (grid_.Measurer().WidthOf(widest) + margin_ <= grid_.ColWidth(col)) {
    column.numbersBelow = std::max(column.numbersBelow, power);
  }
}

}  // namespace tallyrun
