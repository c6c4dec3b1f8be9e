// The balances of a sheet's holdings: for every wanted pair of BO ID and ISIN the one on the first
// holding line that contains both, found in one pass over the lines. Knows no grid.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "holding/HoldingFile.h"

namespace tallyrun {

struct WantedHoldings {
  struct Pair {
    std::uint32_t boId;  // index into boIds
    std::uint32_t isin;  // index into isins
  };
  std::vector<std::string> boIds;  // each text once
  std::vector<std::string> isins;  // each text once
  std::vector<Pair> pairs;         // in any order, also several times
};

// A balance as the file writes it, or nothing when no line has the pair.
using HoldingBalance = std::optional<std::string_view>;

// For each pair the balance on the first line that contains both texts, case-sensitive and
// anywhere in it. An empty text is contained in every line.
std::vector<HoldingBalance> FindBalances(HoldingFile& file, const WantedHoldings& wanted);

}  // namespace tallyrun
