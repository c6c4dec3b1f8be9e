#include "holding/HoldingSearch.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

#include "holding/TextMatcher.h"

namespace tallyrun {
namespace {

constexpr std::uint32_t kNone = UINT32_MAX;

class Search {
 public:
  explicit Search(const HoldingQuery& query);
  std::vector<std::optional<std::string_view>> Run(const HoldingFile& file);

 private:
  // What one text is wanted as: a BO ID, an ISIN or both.
  struct Wanted {
    std::uint32_t boId = kNone;
    std::uint32_t isin = kNone;
    std::uint32_t lastLine = 0;  // the number of the line it was last seen in
  };

  std::vector<std::string_view> DistinctTexts();
  void SortPairs();
  void SeeLine(std::string_view line);
  void See(Wanted& wanted);
  void JoinBoId(std::uint32_t boId, std::string_view line);
  std::uint32_t PairOf(std::uint32_t boId, std::uint32_t isin) const;
  void Settle(std::uint32_t pair, std::string_view line);

  const HoldingQuery& query_;
  std::vector<Wanted> wanted_;  // by the index of the text in the matcher
  Wanted empty_;                // the empty text, which every line contains
  TextMatcher matcher_;

  // The pairs in order of BO ID and ISIN; those of BO ID b stand from firstOf_[b] to
  // firstOf_[b + 1].
  std::vector<std::uint32_t> sortedPairs_;
  std::vector<std::uint32_t> firstOf_;
  std::vector<std::uint32_t> unsettled_;  // pairs of each BO ID that have no line yet
  std::size_t unsettledPairs_;
  std::vector<std::optional<std::string_view>> lines_;

  // The line at hand.
  std::uint32_t lineNumber_ = 0;
  std::vector<std::uint32_t> found_;
  std::vector<std::uint32_t> boIdsHere_;
  std::vector<std::uint32_t> isinsHere_;
  std::vector<std::uint32_t> isinLastLine_;
};

Search::Search(const HoldingQuery& query)
    : query_(query),
      matcher_(DistinctTexts()),
      firstOf_(query.boIds.size() + 1, 0),
      unsettled_(query.boIds.size(), 0),
      unsettledPairs_(query.pairs.size()),
      lines_(query.pairs.size()),
      isinLastLine_(query.isins.size(), 0) {
  SortPairs();
}

std::vector<std::string_view> Search::DistinctTexts() {
  std::vector<std::string_view> texts;
  std::unordered_map<std::string_view, std::uint32_t> indexOf;
  const auto entryFor = [&](std::string_view text) -> Wanted& {
    if (text.empty()) return empty_;
    const auto [place, isNew] = indexOf.emplace(text, static_cast<std::uint32_t>(texts.size()));
    if (isNew) {
      texts.push_back(text);
      wanted_.emplace_back();
    }
    return wanted_[place->second];
  };
  for (std::uint32_t i = 0; i < query_.boIds.size(); ++i) entryFor(query_.boIds[i]).boId = i;
  for (std::uint32_t i = 0; i < query_.isins.size(); ++i) entryFor(query_.isins[i]).isin = i;
  return texts;
}

void Search::SortPairs() {
  const auto& pairs = query_.pairs;
  sortedPairs_.resize(pairs.size());
  std::iota(sortedPairs_.begin(), sortedPairs_.end(), 0u);
  std::sort(sortedPairs_.begin(), sortedPairs_.end(), [&](std::uint32_t a, std::uint32_t b) {
    return pairs[a].boId != pairs[b].boId ? pairs[a].boId < pairs[b].boId
                                          : pairs[a].isin < pairs[b].isin;
  });
  for (const auto& pair : pairs) ++unsettled_[pair.boId];
  std::partial_sum(unsettled_.begin(), unsettled_.end(), firstOf_.begin() + 1);
}

std::vector<std::optional<std::string_view>> Search::Run(const HoldingFile& file) {
  if (unsettledPairs_ == 0) return std::move(lines_);
  file.ForEachHolding([this](std::string_view line) {
    SeeLine(line);
    return unsettledPairs_ != 0;
  });
  return std::move(lines_);
}

void Search::SeeLine(std::string_view line) {
  ++lineNumber_;
  boIdsHere_.clear();
  isinsHere_.clear();
  found_.clear();
  matcher_.FindIn(line, found_);
  for (const std::uint32_t text : found_) See(wanted_[text]);
  See(empty_);
  if (isinsHere_.empty()) return;
  for (const std::uint32_t boId : boIdsHere_) JoinBoId(boId, line);
}

void Search::See(Wanted& wanted) {
  if (wanted.lastLine == lineNumber_) return;
  wanted.lastLine = lineNumber_;
  if (wanted.boId != kNone && unsettled_[wanted.boId] != 0) boIdsHere_.push_back(wanted.boId);
  if (wanted.isin != kNone) {
    isinsHere_.push_back(wanted.isin);
    isinLastLine_[wanted.isin] = lineNumber_;
  }
}

// Goes through the BO ID's pairs or through the line's ISINs, whichever are fewer: neither a BO
// ID with thousands of ISINs nor one endless line makes the pass quadratic.
void Search::JoinBoId(std::uint32_t boId, std::string_view line) {
  const std::uint32_t first = firstOf_[boId];
  const std::uint32_t last = firstOf_[boId + 1];
  if (last - first <= isinsHere_.size()) {
    for (std::uint32_t i = first; i < last; ++i) {
      const std::uint32_t pair = sortedPairs_[i];
      if (isinLastLine_[query_.pairs[pair].isin] == lineNumber_) Settle(pair, line);
    }
    return;
  }
  for (const std::uint32_t isin : isinsHere_) {
    const std::uint32_t pair = PairOf(boId, isin);
    if (pair != kNone) Settle(pair, line);
  }
}

std::uint32_t Search::PairOf(std::uint32_t boId, std::uint32_t isin) const {
  const auto begin = sortedPairs_.begin() + firstOf_[boId];
  const auto end = sortedPairs_.begin() + firstOf_[boId + 1];
  const auto place =
      std::lower_bound(begin, end, isin, [this](std::uint32_t pair, std::uint32_t wanted) {
        return query_.pairs[pair].isin < wanted;
      });
  return place != end && query_.pairs[*place].isin == isin ? *place : kNone;
}

void Search::Settle(std::uint32_t pair, std::string_view line) {
  if (lines_[pair]) return;
  lines_[pair] = line;
  --unsettled_[query_.pairs[pair].boId];
  --unsettledPairs_;
}

}  // namespace

std::vector<std::optional<std::string_view>> FindHoldings(const HoldingFile& file,
                                                          const HoldingQuery& query) {
  return Search(query).Run(file);
}

}  // namespace tallyrun
