#include "core/masterlists/RecordIndex.h"

#include <algorithm>
#include <functional>

#include "core/text/Conversion.h"
#include "core/text/Split.h"

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

ContainingIndex::ContainingIndex(const RecordList& list, int field) {
  for (int record = 1; record <= list.Count(); ++record) {
    if (list.FieldCount(record) < field) continue;
    fields_ += kCellSeparator;
    begins_.push_back(fields_.size());
    records_.push_back(record);
    fields_ += ToLower(list.Field(record, field));
  }
}

// One search over all fields at once: a field has no separator in it, so that a text without one
// is found within a field only.
std::optional<int> ContainingIndex::Find(std::string_view text) const {
  if (records_.empty() || text.find(kCellSeparator) != text.npos) return std::nullopt;
  if (text.empty()) return records_.front();
  const std::string wanted = ToLower(text);
  const auto found = std::search(fields_.begin(), fields_.end(),
                                 std::boyer_moore_horspool_searcher(wanted.begin(), wanted.end()));
  if (found == fields_.end()) return std::nullopt;
  const auto offset = static_cast<std::size_t>(found - fields_.begin());
  const auto next = std::upper_bound(begins_.begin(), begins_.end(), offset);
  return records_[static_cast<std::size_t>(next - begins_.begin()) - 1];
}

}  // namespace tallyrun
