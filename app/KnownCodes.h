// The codes that one pass over a trade file has met, with the cells that follow from them: what is
// known here has been interned, looked up and fitted into its columns. Codes are as short as a
// word, so that one look at memory finds them; a longer text is never known and takes the long way
// every time.
#pragma once

#include <vector>

#include "app/RowLookups.h"
#include "core/FlexGrid.h"
#include "core/TextTable.h"

namespace tallyrun {

struct KnownCode {
  CellValue cell = CellValue::Empty;
  CodeAndName answer;
};

class KnownCodes {
 public:
  static constexpr std::uint32_t kUnknown = TextTable::kNone;

  // Where a code is known, or kUnknown; what is known there is fetched meanwhile.
  std::uint32_t Find(const TextKey& code) const {
    if (code.text.size() > kWordBytes) return kUnknown;
    const std::uint32_t place = places_.Find(code, [](std::uint32_t) { return ""; });
    if (place != kUnknown) __builtin_prefetch(&known_[place - 1]);
    return place;
  }
  const KnownCode& At(std::uint32_t place) const { return known_[place - 1]; }
  // Fetches what Find will look at, for a code that is looked for a little later.
  void Prefetch(const TextKey& code) const { places_.Prefetch(code); }

  void Add(const TextKey& code, const KnownCode& known) {
    if (code.text.size() > kWordBytes) return;
    known_.push_back(known);
    places_.Add(code, static_cast<std::uint32_t>(known_.size()));
  }

 private:
  TextTable places_;  // in known_, from 1
  std::vector<KnownCode> known_;
};

}  // namespace tallyrun
