#include "core/masterlists/RecordList.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "core/Edition.h"
#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "core/grid/TildeTable.h"
#include "core/masterlists/RecordIndex.h"
#include "core/text/SeparatorScan.h"

namespace tallyrun {
namespace {

// The field's index, made when the field is first searched.
template <class Index, class Make>
Index& IndexOf(std::map<int, Index>& indexes, int field, Make make) {
  auto found = indexes.find(field);
  if (found == indexes.end()) found = indexes.emplace(field, make()).first;
  return found->second;
}

}  // namespace

// The file's text is kept once; a field is a place in it. Every record has room for all fields, so
// that a record is found without a look elsewhere, and a list costs two allocations, however long.
struct RecordList::State {
  struct Place {
    std::uint32_t begin;
    std::uint32_t length;
  };
  static constexpr std::uint32_t kAbsent =
      UINT32_MAX;  // length of what a record of one field lacks

  const std::uint64_t edition = NewEdition();
  std::string text;
  std::size_t fields = 1;  // of a whole record
  std::vector<Place> places;
  std::size_t count = 0;

  // Of the fields searched so far; a list does not change once it is read.
  std::map<int, EqualityIndex> equal;
  std::map<int, EqualityIndex> equalWithoutCr;
  std::map<int, ContainingIndex> containing;

  void ReadText();
  void EndRecord(std::size_t pieces);
  void RepairLast();
  const Place* PlaceOf(std::size_t record, int field) const;
  std::string_view TextAt(const Place& place) const {
    return std::string_view(text).substr(place.begin, place.length);
  }
  FieldColumn Column(int field) const;
  const EqualityIndex& Equal(int field);
};

void RecordList::State::ReadText() {
  if (text.empty()) return;
  places.reserve((CountLineEnds(text) + 1) * fields);
  std::size_t begin = 0;
  std::size_t pieces = 0;
  const auto endPiece = [&](std::size_t end) {
    if (pieces < fields) {
      places.push_back(
          {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end - begin)});
    }
    ++pieces;
    begin = end + 1;
  };
  ForEachSeparator(text, kCellMark, '\n', [&](std::size_t place) {
    if (text[place] == kCellMark) return endPiece(place);
    if (place == 0 || text[place - 1] != '\r') return;
    endPiece(place - 1);
    EndRecord(pieces);
    begin = place + 1;
    pieces = 0;
  });
  endPiece(text.size());
  EndRecord(pieces);
}

void RecordList::State::EndRecord(std::size_t pieces) {
  if (pieces > 1 && pieces < fields) {
    places.resize(count * fields);
    throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  }
  ++count;
  places.resize(count * fields, {0, kAbsent});
}

// The place of the field, null when the record or its field does not exist.
const RecordList::State::Place* RecordList::State::PlaceOf(std::size_t record, int field) const {
  const auto at = static_cast<std::size_t>(field) - 1;
  if (record < 1 || record > count || at >= fields) return nullptr;
  const Place& place = places[(record - 1) * fields + at];
  return place.length == kAbsent ? nullptr : &place;
}

void RecordList::State::RepairLast() {
  if (PlaceOf(count, static_cast<int>(fields)) == nullptr) {
    throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  }
  Place& last = places.back();
  char* const begin = text.data() + last.begin;
  last.length = static_cast<std::uint32_t>(std::remove(begin, begin + last.length, '\r') - begin);
}

FieldColumn RecordList::State::Column(int field) const {
  FieldColumn column;
  column.reserve(count);
  for (std::size_t record = 1; record <= count; ++record) {
    const Place* const place = PlaceOf(record, field);
    if (place != nullptr) column.push_back({static_cast<int>(record), TextAt(*place)});
  }
  return column;
}

RecordList::RecordList() : state_(std::make_unique<State>()) {}
RecordList::~RecordList() = default;
RecordList::RecordList(RecordList&&) noexcept = default;
RecordList& RecordList::operator=(RecordList&&) noexcept = default;

void RecordList::Read(RecordList& list, std::string text, int fields, bool repairLast) {
  if (text.size() >= State::kAbsent) throw RuntimeError(ErrorKind::OutOfMemory);
  list = RecordList();
  State& state = *list.state_;
  state.text = std::move(text);
  state.fields = static_cast<std::size_t>(fields);
  state.ReadText();
  if (repairLast) state.RepairLast();
}

std::uint64_t RecordList::Edition() const { return state_->edition; }

int RecordList::Count() const { return static_cast<int>(state_->count); }

int RecordList::FieldCount(int record) const {
  const auto at = static_cast<std::size_t>(record);
  if (state_->PlaceOf(at, 1) == nullptr) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  const auto fields = static_cast<int>(state_->fields);
  return state_->PlaceOf(at, fields) == nullptr ? 1 : fields;
}

std::string_view RecordList::Field(int record, int field) const {
  const State::Place* const place = state_->PlaceOf(static_cast<std::size_t>(record), field);
  if (place == nullptr) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  return state_->TextAt(*place);
}

const EqualityIndex& RecordList::State::Equal(int field) {
  return IndexOf(equal, field, [&] {
    return EqualityIndex(Column(field), EqualityIndex::CarriageReturns::Kept);
  });
}

int RecordList::FindEqual(int field, std::string_view text) const {
  return state_->Equal(field).Find(text);
}

int RecordList::FirstEqualTo(int record, int field) const {
  return state_->Equal(field).FirstEqualTo(record);
}

const EqualityIndex& RecordList::IndexWithoutCr(int field) const {
  return IndexOf(state_->equalWithoutCr, field, [&] {
    return EqualityIndex(state_->Column(field), EqualityIndex::CarriageReturns::TakenOut);
  });
}

int RecordList::FindEqualWithoutCr(int field, std::string_view text) const {
  return IndexWithoutCr(field).Find(text);
}

void RecordList::PrefetchRecord(int record) const {
  __builtin_prefetch(&state_->places[(static_cast<std::size_t>(record) - 1) * state_->fields]);
}

int RecordList::FindContaining(int field, std::string_view text) const {
  const auto make = [&] { return ContainingIndex(state_->Column(field)); };
  return IndexOf(state_->containing, field, make).Find(text);
}

}  // namespace tallyrun
