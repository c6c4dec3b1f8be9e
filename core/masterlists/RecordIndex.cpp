#include "core/masterlists/RecordIndex.h"

#include <numeric>

#include "core/text/Conversion.h"

namespace tallyrun {

EqualityIndex::EqualityIndex(const RecordList& list, int field, CarriageReturns carriageReturns) {
  for (int record = 1; record <= list.Count(); ++record) {
    if (list.FieldCount(record) < field) continue;
    std::string text(list.Field(record, field));
    if (carriageReturns == CarriageReturns::TakenOut) std::erase(text, '\r');
    if (texts_.Intern(text) == firstRecords_.size()) firstRecords_.push_back(record);
  }
}

std::optional<int> EqualityIndex::Find(std::string_view text) const {
  const auto number = texts_.Find(text);
  return number ? std::optional(firstRecords_[*number]) : std::nullopt;
}

ContainingIndex::ContainingIndex(const RecordList& list, int field) : ContainingIndex() {
  for (int record = 1; record <= list.Count(); ++record) {
    if (list.FieldCount(record) < field) continue;
    records_.push_back(record);
    fields_.push_back(ToLower(list.Field(record, field)));
  }
  for (std::size_t entry = 0; entry < fields_.size(); ++entry) {
    ForEachRun(entry, [this](std::size_t bucket) { ++bucketBegins_[bucket + 1]; });
  }
  std::partial_sum(bucketBegins_.begin(), bucketBegins_.end(), bucketBegins_.begin());
  bucketEntries_.resize(bucketBegins_.back());
  std::vector<std::uint32_t> ends(bucketBegins_.begin(), bucketBegins_.end() - 1);
  for (std::size_t entry = 0; entry < fields_.size(); ++entry) {
    ForEachRun(entry, [&](std::size_t bucket) {
      bucketEntries_[ends[bucket]++] = static_cast<std::uint32_t>(entry);
    });
  }
}

std::optional<int> ContainingIndex::Find(std::string_view text) const {
  const std::string wanted = ToLower(text);
  const auto isIn = [&](std::size_t entry) { return fields_[entry].find(wanted) != wanted.npos; };
  if (wanted.size() < kRun) {
    for (std::size_t entry = 0; entry < fields_.size(); ++entry) {
      if (isIn(entry)) return records_[entry];
    }
    return std::nullopt;
  }
  const auto sizeOf = [this](std::size_t bucket) {
    return bucketBegins_[bucket + 1] - bucketBegins_[bucket];
  };
  std::size_t rarest = BucketOf(wanted);
  for (std::size_t at = 1; at + kRun <= wanted.size(); ++at) {
    const std::size_t bucket = BucketOf(std::string_view(wanted).substr(at));
    if (sizeOf(bucket) < sizeOf(rarest)) rarest = bucket;
  }
  for (std::uint32_t at = bucketBegins_[rarest]; at < bucketBegins_[rarest + 1]; ++at) {
    if (isIn(bucketEntries_[at])) return records_[bucketEntries_[at]];
  }
  return std::nullopt;
}

std::size_t ContainingIndex::BucketOf(std::string_view run) {
  std::uint32_t word = 0;
  for (const char c : run.substr(0, kRun)) word = word << 8 | static_cast<unsigned char>(c);
  return (word * 0x9E3779B1u) >> 16;
}

template <class Action>
void ContainingIndex::ForEachRun(std::size_t entry, Action action) const {
  const std::string_view field = fields_[entry];
  for (std::size_t at = 0; at + kRun <= field.size(); ++at) action(BucketOf(field.substr(at)));
}

}  // namespace tallyrun
