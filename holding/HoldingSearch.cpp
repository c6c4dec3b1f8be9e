#include "holding/HoldingSearch.h"

#include <algorithm>
#include <bit>
#include <numeric>

#include "core/RadixSort.h"
#include "core/TextTable.h"
#include "holding/TextMatcher.h"

namespace tallyrun {
namespace {

constexpr std::uint32_t kNone = UINT32_MAX;

// The pairs asked for, each once, in order of BO ID and then ISIN.
class SortedPairs {
 public:
  explicit SortedPairs(const HoldingQuery& query);

  std::size_t Count() const { return isins_.size(); }
  // Which of them the query's pair `at` is.
  std::uint32_t NumberOf(std::size_t at) const { return numbers_[at]; }
  std::uint32_t IsinOf(std::uint32_t number) const { return isins_[number]; }
  // The pairs of a BO ID are those from Begin(boId) to Begin(boId + 1).
  std::uint32_t Begin(std::uint32_t boId) const { return begins_[boId]; }
  std::uint32_t Find(std::uint32_t boId, std::uint32_t isin) const;

 private:
  std::vector<std::uint32_t> numbers_;  // by place in the query
  std::vector<std::uint32_t> isins_;
  std::vector<std::uint32_t> begins_;
};

SortedPairs::SortedPairs(const HoldingQuery& query)
    : numbers_(query.pairs.size()), begins_(query.boIds.size() + 1, 0) {
  const auto isinBits = static_cast<int>(std::bit_width(query.isins.size()));
  std::vector<KeyedItem> items;
  items.reserve(query.pairs.size());
  for (const HoldingQuery::Pair& pair : query.pairs) {
    items.push_back({std::uint64_t{pair.boId} << isinBits | pair.isin,
                     static_cast<std::uint32_t>(items.size())});
  }
  RadixSort(items);
  for (std::size_t at = 0; at < items.size(); ++at) {
    const HoldingQuery::Pair& pair = query.pairs[items[at].item];
    if (at == 0 || items[at].key != items[at - 1].key) {
      isins_.push_back(pair.isin);
      ++begins_[pair.boId + 1];
    }
    numbers_[items[at].item] = static_cast<std::uint32_t>(isins_.size()) - 1;
  }
  std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
}

std::uint32_t SortedPairs::Find(std::uint32_t boId, std::uint32_t isin) const {
  const auto begin = isins_.begin() + begins_[boId];
  const auto end = isins_.begin() + begins_[boId + 1];
  const auto place = std::lower_bound(begin, end, isin);
  return place != end && *place == isin ? static_cast<std::uint32_t>(place - isins_.begin())
                                        : kNone;
}

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
  void SeeLine(std::string_view line, const std::vector<std::uint32_t>& found);
  void See(Wanted& wanted);
  void JoinBoId(std::uint32_t boId, std::string_view line);
  void Settle(std::uint32_t boId, std::uint32_t pair, std::string_view line);

  const HoldingQuery& query_;
  std::vector<Wanted> wanted_;  // by the index of the text in the matcher
  Wanted empty_;                // the empty text, which every line contains
  TextMatcher matcher_;

  SortedPairs pairs_;
  std::vector<std::uint32_t> unsettled_;  // pairs of each BO ID that have no line yet
  std::size_t unsettledPairs_;
  std::vector<std::string_view> lines_;  // by pair; with no data while there is none

  // The line at hand.
  std::uint32_t lineNumber_ = 0;
  std::vector<std::uint32_t> boIdsHere_;
  std::vector<std::uint32_t> isinsHere_;
  std::vector<std::uint32_t> isinLastLine_;
};

Search::Search(const HoldingQuery& query)
    : query_(query),
      matcher_(DistinctTexts()),
      pairs_(query),
      unsettled_(query.boIds.size()),
      unsettledPairs_(pairs_.Count()),
      lines_(pairs_.Count()),
      isinLastLine_(query.isins.size(), 0) {
  for (std::uint32_t boId = 0; boId < unsettled_.size(); ++boId) {
    unsettled_[boId] = pairs_.Begin(boId + 1) - pairs_.Begin(boId);
  }
}

// BO IDs first: they stand in the sheet's order, which is mostly the file's as well.
std::vector<std::string_view> Search::DistinctTexts() {
  std::vector<std::string_view> texts;
  TextTable isins;  // by index plus 1; there are far fewer of them
  const auto isinOf = [&](std::uint32_t number) { return query_.isins[number - 1]; };
  for (std::uint32_t i = 0; i < query_.isins.size(); ++i)
    isins.Add(TextKey(query_.isins[i]), i + 1);
  std::vector<bool> isBoId(query_.isins.size());
  const auto add = [&](std::string_view text, const Wanted& wanted) {
    if (text.empty()) {
      if (wanted.boId != kNone) empty_.boId = wanted.boId;
      if (wanted.isin != kNone) empty_.isin = wanted.isin;
      return;
    }
    texts.push_back(text);
    wanted_.push_back(wanted);
  };
  for (std::uint32_t i = 0; i < query_.boIds.size(); ++i) {
    const std::uint32_t isin =
        isins.Find(TextKey(query_.boIds[i]), isinOf) - 1;  // kNone when it is none
    if (isin != kNone) isBoId[isin] = true;
    add(query_.boIds[i], {i, isin});
  }
  for (std::uint32_t i = 0; i < query_.isins.size(); ++i) {
    if (!isBoId[i]) add(query_.isins[i], {kNone, i});
  }
  return texts;
}

std::vector<std::optional<std::string_view>> Search::Run(const HoldingFile& file) {
  if (const auto holdings = file.Holdings(); holdings && unsettledPairs_ != 0) {
    matcher_.ForEachLine(*holdings, [this](std::string_view line, const auto& found) {
      SeeLine(line, found);
      return unsettledPairs_ != 0;
    });
  }
  std::vector<std::optional<std::string_view>> answers(query_.pairs.size());
  for (std::size_t at = 0; at < answers.size(); ++at) {
    const std::string_view line = lines_[pairs_.NumberOf(at)];
    if (line.data() != nullptr) answers[at] = line;
  }
  return answers;
}

void Search::SeeLine(std::string_view line, const std::vector<std::uint32_t>& found) {
  ++lineNumber_;
  boIdsHere_.clear();
  isinsHere_.clear();
  for (const std::uint32_t text : found) See(wanted_[text]);
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
  const std::uint32_t begin = pairs_.Begin(boId);
  const std::uint32_t end = pairs_.Begin(boId + 1);
  if (end - begin <= isinsHere_.size()) {
    for (std::uint32_t pair = begin; pair < end; ++pair) {
      if (isinLastLine_[pairs_.IsinOf(pair)] == lineNumber_) Settle(boId, pair, line);
    }
    return;
  }
  for (const std::uint32_t isin : isinsHere_) {
    const std::uint32_t pair = pairs_.Find(boId, isin);
    if (pair != kNone) Settle(boId, pair, line);
  }
}

void Search::Settle(std::uint32_t boId, std::uint32_t pair, std::string_view line) {
  if (lines_[pair].data() != nullptr) return;
  lines_[pair] = line;
  --unsettled_[boId];
  --unsettledPairs_;
}

}  // namespace

std::vector<std::optional<std::string_view>> FindHoldings(const HoldingFile& file,
                                                          const HoldingQuery& query) {
  return Search(query).Run(file);
}

}  // namespace tallyrun
