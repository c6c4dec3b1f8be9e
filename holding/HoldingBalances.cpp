#include "holding/HoldingBalances.h"

#include <algorithm>
#include <compare>
#include <numeric>
#include <span>
#include <utility>

#include "holding/HoldingFile.h"
#include "holding/TextMatcher.h"

namespace tallyrun {
namespace {

using Indices = std::vector<std::uint32_t>;

class BalanceSearch {
 public:
  explicit BalanceSearch(const WantedHoldings& wanted);

  void SeeLine(std::string_view line);
  std::vector<HoldingBalance> TakeBalances() { return std::move(balances_); }

 private:
  // What is wanted of a BO ID.
  struct Wanted {
    std::uint32_t isin;
    std::uint32_t pair;

    auto operator<=>(const Wanted&) const = default;
  };

  std::span<Wanted> WantedOf(std::uint32_t boId) {
    return std::span(wanted_).subspan(begins_[boId], begins_[boId + 1] - begins_[boId]);
  }
  void Join(std::span<const Wanted> ofBoId, std::string_view balance);

  TextMatcher boIds_;
  TextMatcher isins_;
  std::vector<Wanted> wanted_;            // BO ID after BO ID, for each in order
  Indices begins_;                        // in wanted_, by BO ID, and the end
  std::vector<HoldingBalance> balances_;  // by pair
  Indices boIdsHere_;                     // in the line at hand
  Indices isinsHere_;
};

BalanceSearch::BalanceSearch(const WantedHoldings& wanted)
    : boIds_(wanted.boIds),
      isins_(wanted.isins),
      wanted_(wanted.pairs.size()),
      begins_(wanted.boIds.size() + 1),
      balances_(wanted.pairs.size()) {
  for (const auto& pair : wanted.pairs) ++begins_[pair.boId + 1];
  std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
  Indices ends = begins_;
  for (std::uint32_t number = 0; number < wanted.pairs.size(); ++number) {
    const auto& [boId, isin] = wanted.pairs[number];
    wanted_[ends[boId]++] = {isin, number};
  }
  for (std::uint32_t boId = 0; boId < wanted.boIds.size(); ++boId) {
    const auto ofBoId = WantedOf(boId);
    std::sort(ofBoId.begin(), ofBoId.end());
  }
}

void BalanceSearch::SeeLine(std::string_view line) {
  boIds_.FindIn(line, boIdsHere_);
  if (boIdsHere_.empty()) return;
  isins_.FindIn(line, isinsHere_);
  for (const std::uint32_t boId : boIdsHere_) Join(WantedOf(boId), HoldingFile::BalanceOf(line));
}

// Goes through what is wanted of the BO ID or through the line's ISINs, whichever are fewer:
// neither a BO ID with thousands of ISINs nor one endless line makes the pass quadratic.
void BalanceSearch::Join(std::span<const Wanted> ofBoId, std::string_view balance) {
  if (ofBoId.size() < isinsHere_.size()) {
    for (const auto& [isin, pair] : ofBoId) {
      if (balances_[pair]) continue;
      if (std::binary_search(isinsHere_.begin(), isinsHere_.end(), isin)) balances_[pair] = balance;
    }
    return;
  }
  for (const std::uint32_t isin : isinsHere_) {
    auto each = std::lower_bound(ofBoId.begin(), ofBoId.end(), Wanted{isin, 0});
    // Pairs that are the same get their balance together.
    for (; each != ofBoId.end() && each->isin == isin && !balances_[each->pair]; ++each) {
      balances_[each->pair] = balance;
    }
  }
}

}  // namespace

std::vector<HoldingBalance> FindBalances(HoldingFile& file, const WantedHoldings& wanted) {
  BalanceSearch search(wanted);
  while (const auto line = file.NextHolding()) search.SeeLine(*line);
  return search.TakeBalances();
}

}  // namespace tallyrun
