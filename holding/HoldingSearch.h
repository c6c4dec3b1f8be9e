// The search for holdings: for every wanted pair of BO ID and ISIN the first holding line that
// contains both, found in one pass over the file. Knows no grid.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

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

// For each pair the first line (from line 9 on) that contains both texts, case-sensitive and
// anywhere in it, or nothing. An empty text is contained in every line. The lines are views into
// `file`.
std::vector<std::optional<std::string_view>> FindHoldings(const HoldingFile& file,
                                                          const HoldingQuery& query);

}  // namespace tallyrun
