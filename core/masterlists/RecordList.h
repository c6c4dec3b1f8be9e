// A master list in memory: the records of a tilde table text in file order, the header line
// being the first. Records and fields count from 1. Lookups by equality go through an index
// built with the list, lookups by "contains" remember their answers; both give the first record
// that a walk from the top would give.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tallyrun {

class EqualityIndex;

class RecordList {
 public:
  RecordList();
  ~RecordList();
  RecordList(RecordList&&) noexcept;
  RecordList& operator=(RecordList&&) noexcept;

  // Records read from `text` (the contents of a list file), `fields` to a record: every line is
  // cut at "~"; a line without "~" has one field. A line with some but fewer than `fields` pieces
  // raises SubscriptOutOfRange, the records before it staying in `list`. With `repairLast`, the
  // carriage returns are taken out of the last record's last field, which raises
  // SubscriptOutOfRange when there is no such field.
  static void Read(RecordList& list, std::string text, int fields, bool repairLast);

  // A number that no other list, nor this one before its last reading, has.
  std::uint64_t Edition() const;

  int Count() const;
  int FieldCount(int record) const;
  // Raises SubscriptOutOfRange when there is no such record or field.
  std::string_view Field(int record, int field) const;

  // The first record whose field is exactly `text`, or 0. A record without the field is passed.
  int FindEqual(int field, std::string_view text) const;
  // The same, comparing the field with every carriage return taken out of it.
  int FindEqualWithoutCr(int field, std::string_view text) const;
  // FindEqual for what stands in the field of `record`; 0 when that has no such field.
  int FirstEqualTo(int record, int field) const;
  // The index behind FindEqualWithoutCr, for whoever asks it often; good until the list is read
  // anew or moved from.
  const EqualityIndex& IndexWithoutCr(int field) const;
  // Fetches what Field will look at, for a record that is asked a little later.
  void PrefetchRecord(int record) const;
  // The first record whose field contains `text` in any letter case, or 0. An empty text is
  // contained in every field.
  int FindContaining(int field, std::string_view text) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tallyrun
