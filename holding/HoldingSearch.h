// The search for holdings: for every wanted pair of BO ID and ISIN the balance on the first
// holding line that contains both, found in one pass over the file. Knows no grid.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "holding/HoldingBalances.h"
#include "holding/HoldingFile.h"

namespace tallyrun {

struct HoldingQuery {
  struct Pair {
    std::uint32_t boId;  // index into boIds
    std::uint32_t isin;  // index into isins
  };
  std::vector<std::string_view> boIds;  // each text once
  std::vector<std::string_view> isins;  // each text once
  std::vector<Pair> pairs;              // in any order, also several times
};

// For each pair the balance on the first line (from line 9 on) that contains both texts,
// case-sensitive and anywhere in it. An empty text is contained in every line.
HoldingBalances FindHoldings(HoldingFile& file, const HoldingQuery& query);

}  // namespace tallyrun
