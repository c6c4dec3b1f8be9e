// A master list in memory: the records of a tilde table text in file order, the header line being
// the first. Records and fields count from 1.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tallyrun {

class RecordList {
 public:
  // Replaces the list by the records of `text`, `fields` to a record: every line is cut at "~"; a
  // line without "~" has one field. A line with some but fewer than `fields` pieces raises
  // SubscriptOutOfRange, the records before it staying in the list.
  void Read(std::string text, int fields);
  // Takes the carriage returns out of the last record's last field. Raises SubscriptOutOfRange when
  // there is no such field.
  void RepairLast();

  int Count() const { return count_; }
  // Either 1 or all. Raises SubscriptOutOfRange when there is no such record, ...
  int FieldCount(int record) const;
  // ... or field.
  std::string_view Field(int record, int field) const;

 private:
  std::unique_ptr<std::string> text_;  // stays where it is when the list is moved
  std::size_t recordFields_ = 1;       // of a whole record
  std::vector<std::string_view>
      fields_;  // views of it, of all records; null where a record has one only
  int count_ = 0;
};

}  // namespace tallyrun
