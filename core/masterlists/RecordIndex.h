// How one field of a list is searched without walking the list: by equality, and by "contains in
// any letter case". Both answer with the first record that a walk from the top would find; a record
// without the field is passed. Made anew whenever the list is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/masterlists/RecordList.h"
#include "core/text/TextTable.h"

namespace tallyrun {

enum class CarriageReturns { Kept, TakenOut };  // of the fields that are compared

class EqualityIndex {
 public:
  EqualityIndex() = default;
  EqualityIndex(const RecordList& list, int field, CarriageReturns carriageReturns);

  // The first record whose field is exactly `text`.
  std::optional<int> Find(std::string_view text) const;

 private:
  TextTable texts_;
  std::vector<int> firstRecords_;  // by the text's number
};

class ContainingIndex {
 public:
  ContainingIndex() : bucketBegins_(kBuckets + 1) {}
  ContainingIndex(const RecordList& list, int field);

  // The first record whose field contains `text` in any letter case. An empty text is contained in
  // every field.
  std::optional<int> Find(std::string_view text) const;

 private:
  static constexpr std::size_t kRun = 4;  // characters
  static constexpr std::size_t kBuckets = 1u << 16;

  static std::size_t BucketOf(std::string_view run);
  // Calls action(bucket) for every run of a field's characters.
  template <class Action>
  void ForEachRun(std::size_t entry, Action action) const;

  std::vector<std::string> fields_;  // in lower case
  std::vector<int> records_;         // of the fields
  // Every kRun characters in a row put their field into the bucket of their hash, in order; a text
  // can only be in the fields of any one of its own buckets.
  std::vector<std::uint32_t> bucketBegins_;
  std::vector<std::uint32_t> bucketEntries_;
};

}  // namespace tallyrun
