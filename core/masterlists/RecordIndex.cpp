#include "core/masterlists/RecordIndex.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

std::size_t BucketOf(const char* run) {
  const auto byte = [run](int at) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(run[at]));
  };
  return ((byte(0) << 24 | byte(1) << 16 | byte(2) << 8 | byte(3)) * 0x9E3779B1u) >> 16;
}

}  // namespace

EqualityIndex::EqualityIndex(const FieldColumn& column, CarriageReturns carriageReturns) {
  const std::size_t records =
      column.empty() ? 0 : static_cast<std::size_t>(column.back().record) + 1;
  texts_.resize(records);
  firstEqual_.resize(records);
  firstRecords_.Reserve(column.size());
  // What the table will look at is fetched for some records together.
  constexpr std::size_t kTogether = 16;
  std::array<TextKey, kTogether> keys;
  for (std::span<const FieldOfRecord> rest = column; !rest.empty();) {
    const auto some = rest.first(std::min(rest.size(), kTogether));
    rest = rest.subspan(some.size());
    for (std::size_t at = 0; at < some.size(); ++at) {
      std::string_view text = some[at].text;
      if (carriageReturns == CarriageReturns::TakenOut &&
          text.find('\r') != std::string_view::npos) {
        std::erase(changedTexts_.emplace_back(text), '\r');
        text = changedTexts_.back();
      }
      texts_[static_cast<std::size_t>(some[at].record)] = text;
      keys[at] = TextKey(text);
      Prefetch(keys[at]);
    }
    for (std::size_t at = 0; at < some.size(); ++at) {
      const int record = some[at].record;
      const int first = Find(keys[at]);
      if (first == 0) firstRecords_.Add(keys[at], static_cast<std::uint32_t>(record));
      firstEqual_[static_cast<std::size_t>(record)] = first == 0 ? record : first;
    }
  }
}

ContainingIndex::ContainingIndex(const FieldColumn& column) : bucketBegins_(kBuckets + 1) {
  begins_.push_back(0);
  for (const FieldOfRecord& field : column) {
    records_.push_back(field.record);
    folded_ += ToLower(field.text);
    begins_.push_back(folded_.size());
    longest_ = std::max(longest_, field.text.size());
  }

  constexpr std::uint32_t kNoEntry = UINT32_MAX;
  std::vector<std::uint32_t> lastEntries(kBuckets, kNoEntry);
  for (std::size_t entry = 0; entry < records_.size(); ++entry) {
    ForEachBucketOf(entry, lastEntries,
                    [this](std::size_t bucket) { ++bucketBegins_[bucket + 1]; });
  }
  for (std::size_t bucket = 0; bucket < kBuckets; ++bucket) {
    bucketBegins_[bucket + 1] += bucketBegins_[bucket];
  }
  bucketEntries_.resize(bucketBegins_.back());
  std::vector<std::uint32_t> ends(bucketBegins_.begin(), bucketBegins_.end() - 1);
  std::fill(lastEntries.begin(), lastEntries.end(), kNoEntry);
  for (std::size_t entry = 0; entry < records_.size(); ++entry) {
    ForEachBucketOf(entry, lastEntries, [&](std::size_t bucket) {
      bucketEntries_[ends[bucket]++] = static_cast<std::uint32_t>(entry);
    });
  }
}

int ContainingIndex::Find(std::string_view text) {
  if (text.size() > longest_) return 0;
  std::string folded = ToLower(text);
  const auto known = answers_.find(folded);
  if (known != answers_.end()) return known->second;
  const int record = Search(folded);
  if (answers_.size() == kRemembered) answers_.clear();
  answers_.emplace(std::move(folded), record);
  return record;
}

std::string_view ContainingIndex::FoldedField(std::size_t entry) const {
  return std::string_view(folded_).substr(begins_[entry], begins_[entry + 1] - begins_[entry]);
}

// Each bucket once for an entry, however often it would fall into it.
template <class Action>
void ContainingIndex::ForEachBucketOf(std::size_t entry, std::vector<std::uint32_t>& lastEntries,
                                      Action action) {
  const std::string_view field = FoldedField(entry);
  for (std::size_t at = 0; at + kRun <= field.size(); ++at) {
    const std::size_t bucket = BucketOf(field.data() + at);
    if (lastEntries[bucket] == entry) continue;
    lastEntries[bucket] = static_cast<std::uint32_t>(entry);
    action(bucket);
  }
}

int ContainingIndex::Search(std::string_view folded) const {
  const auto contains = [&](std::size_t entry) {
    return FoldedField(entry).find(folded) != std::string_view::npos;
  };
  if (folded.size() < kRun) {
    for (std::size_t entry = 0; entry < records_.size(); ++entry) {
      if (contains(entry)) return records_[entry];
    }
    return 0;
  }
  const auto sizeOf = [this](std::size_t bucket) {
    return bucketBegins_[bucket + 1] - bucketBegins_[bucket];
  };
  std::size_t rarest = BucketOf(folded.data());
  for (std::size_t at = 1; at + kRun <= folded.size(); ++at) {
    const std::size_t bucket = BucketOf(folded.data() + at);
    if (sizeOf(bucket) < sizeOf(rarest)) rarest = bucket;
  }
  for (std::uint32_t at = bucketBegins_[rarest]; at < bucketBegins_[rarest + 1]; ++at) {
    if (contains(bucketEntries_[at])) return records_[bucketEntries_[at]];
  }
  return 0;
}

}  // namespace tallyrun
