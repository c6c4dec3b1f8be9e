// How one field of a list is searched without walking the list: by equality, and by "contains in
// any letter case". Both answer with the first record that a walk from the top would find. The
// texts they are made from must outlive them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/text/TextTable.h"

namespace tallyrun {

struct FieldOfRecord {
  int record;
  std::string_view text;
};

// One field of all records that have it, first record first.
using FieldColumn = std::vector<FieldOfRecord>;

class EqualityIndex {
 public:
  enum class CarriageReturns { Kept, TakenOut };

  EqualityIndex(const FieldColumn& column, CarriageReturns carriageReturns);

  // The first record whose field is `text`, or 0.
  int Find(std::string_view text) const { return Find(TextKey(text)); }
  int Find(const TextKey& text) const {
    return static_cast<int>(
        firstRecords_.Find(text, [this](std::uint32_t record) { return texts_[record]; }));
  }
  // Fetches what Find will look at, for a text that is looked for a little later.
  void Prefetch(const TextKey& text) const { firstRecords_.Prefetch(text); }
  // Find for the text that stands in the field of `record`; 0 when that has no such field.
  int FirstEqualTo(int record) const {
    const auto at = static_cast<std::size_t>(record);
    return at < firstEqual_.size() ? firstEqual_[at] : 0;
  }

 private:
  std::vector<std::string_view> texts_;   // by record
  std::vector<int> firstEqual_;           // by record
  TextTable firstRecords_;                // of every text
  std::deque<std::string> changedTexts_;  // those that had a carriage return
};

class ContainingIndex {
 public:
  explicit ContainingIndex(const FieldColumn& column);

  // The first record whose field contains `text`, or 0. The answer is remembered.
  int Find(std::string_view text);

 private:
  static constexpr std::size_t kRun = 4;
  static constexpr std::size_t kBuckets = 1u << 16;
  static constexpr std::size_t kRemembered = 1u << 16;

  std::string_view FoldedField(std::size_t entry) const;
  template <class Action>
  void ForEachBucketOf(std::size_t entry, std::vector<std::uint32_t>& lastEntries, Action action);
  int Search(std::string_view folded) const;

  std::vector<int> records_;
  std::string folded_;               // all fields, one behind the other
  std::vector<std::size_t> begins_;  // of every field in folded_, and the end of the last
  std::size_t longest_ = 0;
  // Every kRun characters in a row put their field into the bucket of their hash, in order; a
  // text can only be in the fields of any one of its own buckets.
  std::vector<std::uint32_t> bucketBegins_;
  std::vector<std::uint32_t> bucketEntries_;
  std::unordered_map<std::string, int> answers_;
};

}  // namespace tallyrun
