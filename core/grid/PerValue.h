// What a pass over a sheet remembers of each distinct cell value: an account's names, whether a
// text was measured. Made for one pass, during which the grid must not be resized.
#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "core/grid/CellValue.h"

namespace tallyrun {

template <class Remembered>
class PerValue {
 public:
  // What is remembered of the value; Remembered() at first. Good until the next call.
  Remembered& operator[](CellValue value) {
    if (IsNumber(value)) return ofNumbers_[value];
    const auto text = static_cast<std::size_t>(value);
    if (text >= ofTexts_.size()) ofTexts_.resize(text + text / 2 + 1);
    return ofTexts_[text];
  }

 private:
  std::vector<Remembered> ofTexts_;  // their numbers are dense
  std::unordered_map<CellValue, Remembered> ofNumbers_;
};

}  // namespace tallyrun
