#include "core/masterlists/RecordList.h"

#include <algorithm>
#include <utility>

#include "core/RuntimeError.h"
#include "core/text/Split.h"

namespace tallyrun {

void RecordList::Read(std::string text, int fields) {
  text_ = std::make_unique<std::string>(std::move(text));
  recordFields_ = static_cast<std::size_t>(fields);
  fields_.clear();
  count_ = 0;
  for (const std::string_view line : Pieces(*text_, kLineEnd)) {
    const std::size_t begin = fields_.size();
    for (const std::string_view piece : Pieces(line, kCellSeparator)) fields_.push_back(piece);
    const std::size_t pieces = fields_.size() - begin;
    if (pieces > 1 && pieces < recordFields_) {
      fields_.resize(begin);
      throw RuntimeError(ErrorKind::SubscriptOutOfRange);
    }
    if (pieces == 0) fields_.push_back(line);
    fields_.resize(begin + recordFields_);
    ++count_;
  }
}

void RecordList::RepairLast() {
  if (count_ == 0 || fields_.back().data() == nullptr) {
    throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  }
  std::string_view& last = fields_.back();
  const auto begin = text_->begin() + (last.data() - text_->data());
  const auto end = std::remove(begin, begin + static_cast<std::ptrdiff_t>(last.size()), '\r');
  last = last.substr(0, static_cast<std::size_t>(end - begin));
}

int RecordList::FieldCount(int record) const {
  if (record < 1 || record > count_) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  const std::string_view last = fields_[static_cast<std::size_t>(record) * recordFields_ - 1];
  return last.data() == nullptr ? 1 : static_cast<int>(recordFields_);
}

std::string_view RecordList::Field(int record, int field) const {
  if (field < 1 || field > FieldCount(record)) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  return fields_[(static_cast<std::size_t>(record) - 1) * recordFields_ +
                 static_cast<std::size_t>(field) - 1];
}

}  // namespace tallyrun
