#include "holding/HoldingSearch.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

#include "holding/TextMatcher.h"

namespace tallyrun {
namespace {

// The pairs asked for by BO ID. A sheet has them in this order already, so that they are put here
// one behind the other.
class PairsOfBoIds {
 public:
  struct Pair {
    std::uint32_t isin;
    std::uint32_t number;  // index in the query

    bool operator<(const Pair& other) const {
      return isin != other.isin ? isin < other.isin : number < other.number;
    }
  };

  explicit PairsOfBoIds(const HoldingQuery& query);

  // In order of their ISINs.
  std::span<const Pair> Of(std::uint32_t boId) const {
    return std::span(pairs_).subspan(begins_[boId], begins_[boId + 1] - begins_[boId]);
  }

 private:
  std::vector<Pair> pairs_;
  std::vector<std::uint32_t> begins_;  // in pairs_, by BO ID, and the end
};

PairsOfBoIds::PairsOfBoIds(const HoldingQuery& query)
    : pairs_(query.pairs.size()), begins_(query.boIds.size() + 1, 0) {
  for (const HoldingQuery::Pair& pair : query.pairs) ++begins_[pair.boId];
  std::exclusive_scan(begins_.begin(), begins_.end(), begins_.begin(), 0u);
  std::vector<std::uint32_t> ends = begins_;
  for (std::uint32_t number = 0; number < query.pairs.size(); ++number) {
    const HoldingQuery::Pair& pair = query.pairs[number];
    pairs_[ends[pair.boId]++] = {pair.isin, number};
  }
  for (std::uint32_t boId = 0; boId < query.boIds.size(); ++boId) {
    std::sort(pairs_.begin() + begins_[boId], pairs_.begin() + begins_[boId + 1]);
  }
}

// Leaves each number once, in order. Nearly always there is one.
void KeepEachOnce(std::vector<std::uint32_t>& numbers) {
  if (numbers.size() < 2) return;
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

// Looks through the file for the BO IDs, and for ISINs only in lines of a BO ID that still waits
// for one.
class Search {
 public:
  explicit Search(const HoldingQuery& query);
  HoldingBalances Run(HoldingFile& file);

 private:
  using Pair = PairsOfBoIds::Pair;

  void SeeLine(std::string_view text, std::size_t begin, std::size_t end,
               std::vector<std::uint32_t>& boIds);
  void Join(std::uint32_t boId, std::string_view balance);
  void Settle(std::uint32_t boId, const Pair& pair, std::string_view balance);

  TextMatcher boIds_;
  TextMatcher isins_;
  PairsOfBoIds pairs_;
  std::vector<std::uint32_t> unsettled_;  // pairs of each BO ID that have no line yet
  std::size_t unsettledPairs_;
  HoldingBalances balances_;
  std::vector<std::uint32_t> isinsHere_;  // in the line at hand
};

Search::Search(const HoldingQuery& query)
    : boIds_(query.boIds),
      isins_(query.isins),
      pairs_(query),
      unsettledPairs_(query.pairs.size()),
      balances_(query.pairs.size()) {
  unsettled_.reserve(query.boIds.size());
  for (std::uint32_t boId = 0; boId < query.boIds.size(); ++boId) {
    unsettled_.push_back(static_cast<std::uint32_t>(pairs_.Of(boId).size()));
  }
}

HoldingBalances Search::Run(HoldingFile& file) {
  while (unsettledPairs_ != 0) {
    const auto block = file.NextHoldings();
    if (!block) break;
    boIds_.ForEachLine(*block, [&](std::size_t begin, std::size_t end, auto& boIds) {
      SeeLine(block->text, begin, end, boIds);
      return unsettledPairs_ != 0;
    });
  }
  return std::move(balances_);
}

void Search::SeeLine(std::string_view text, std::size_t begin, std::size_t end,
                     std::vector<std::uint32_t>& boIds) {
  std::erase_if(boIds, [this](std::uint32_t boId) { return unsettled_[boId] == 0; });
  if (boIds.empty()) return;
  isinsHere_.clear();
  isins_.FindIn(text, begin, end, isinsHere_);
  if (isinsHere_.empty()) return;
  KeepEachOnce(boIds);
  KeepEachOnce(isinsHere_);
  const std::string_view balance = HoldingFile::BalanceOf(text.substr(begin, end - begin));
  for (const std::uint32_t boId : boIds) Join(boId, balance);
}

// Goes through the BO ID's pairs or through the line's ISINs, whichever are fewer: neither a BO
// ID with thousands of ISINs nor one endless line makes the pass quadratic.
void Search::Join(std::uint32_t boId, std::string_view balance) {
  const auto pairs = pairs_.Of(boId);
  if (pairs.size() <= isinsHere_.size()) {
    for (const Pair& pair : pairs) {
      if (std::binary_search(isinsHere_.begin(), isinsHere_.end(), pair.isin)) {
        Settle(boId, pair, balance);
      }
    }
    return;
  }
  for (const std::uint32_t isin : isinsHere_) {
    auto pair = std::lower_bound(pairs.begin(), pairs.end(), Pair{isin, 0});
    // Pairs that are the same are settled together.
    for (; pair != pairs.end() && pair->isin == isin && balances_.IsMissing(pair->number); ++pair) {
      Settle(boId, *pair, balance);
    }
  }
}

void Search::Settle(std::uint32_t boId, const Pair& pair, std::string_view balance) {
  if (!balances_.IsMissing(pair.number)) return;
  balances_.Set(pair.number, balance);
  --unsettled_[boId];
  --unsettledPairs_;
}

}  // namespace

HoldingBalances FindHoldings(HoldingFile& file, const HoldingQuery& query) {
  return Search(query).Run(file);
}

}  // namespace tallyrun
