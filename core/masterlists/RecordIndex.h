// How one field of a list is searched without walking the list: by equality, and by "contains in
// any letter case". Both answer with the first record that a walk from the top would find; a record
// without the field is passed. Made anew whenever the list is read.
#pragma once

#include <cstddef>
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
  ContainingIndex() = default;
  ContainingIndex(const RecordList& list, int field);

  // The first record whose field contains `text` in any letter case. An empty text is contained in
  // every field.
  std::optional<int> Find(std::string_view text) const;

 private:
  std::string fields_;               // in lower case, each behind a cell separator
  std::vector<std::size_t> begins_;  // of every field
  std::vector<int> records_;
};

}  // namespace tallyrun
