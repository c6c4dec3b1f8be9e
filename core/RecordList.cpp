#include "core/RecordList.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>
#include <vector>

#include "core/Edition.h"
#include "core/RecordIndex.h"
#include "core/RuntimeError.h"
#include "core/modFileIO.h"

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

// The file's text is kept once; a field is a place in it. Fields stand record after record, so
// that a list costs three allocations, however long it is.
struct RecordList::State {
  struct Place {
    std::uint32_t begin;
    std::uint32_t length;
  };

  const std::uint64_t edition = NewEdition();
  std::string text;
  std::vector<Place> places;
  std::vector<std::uint32_t> firstPlaces = {0};  // of every record, and the end of the last

  // Of the fields searched so far; a list does not change once it is read.
  std::map<int, EqualityIndex> equal;
  std::map<int, EqualityIndex> equalWithoutCr;
  std::map<int, ContainingIndex> containing;

  std::size_t Count() const { return firstPlaces.size() - 1; }

  void Append(std::string_view line, std::size_t fields);
  void RepairLast(std::size_t fields);
  FieldColumn Column(int field) const;
  const EqualityIndex& Equal(int field);
  const EqualityIndex& EqualWithoutCr(int field);
};

void RecordList::State::Append(std::string_view line, std::size_t fields) {
  const std::size_t wanted = line.find(kCellSeparator) == std::string_view::npos ? 1 : fields;
  for (std::size_t field = 1; field <= wanted; ++field) {
    const std::size_t length = std::min(line.find(kCellSeparator), line.size());
    places.push_back({static_cast<std::uint32_t>(line.data() - text.data()),
                      static_cast<std::uint32_t>(length)});
    if (field == wanted) break;
    if (length == line.size()) {
      places.resize(firstPlaces.back());
      throw RuntimeError(ErrorKind::SubscriptOutOfRange);
    }
    line.remove_prefix(length + 1);
  }
  firstPlaces.push_back(static_cast<std::uint32_t>(places.size()));
}

void RecordList::State::RepairLast(std::size_t fields) {
  if (Count() == 0 || places.size() - firstPlaces[Count() - 1] < fields) {
    throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  }
  Place& last = places.back();
  char* const begin = text.data() + last.begin;
  last.length = static_cast<std::uint32_t>(std::remove(begin, begin + last.length, '\r') - begin);
}

FieldColumn RecordList::State::Column(int field) const {
  FieldColumn column;
  for (std::size_t record = 0; record < Count(); ++record) {
    const std::size_t place = firstPlaces[record] + static_cast<std::size_t>(field) - 1;
    if (field < 1 || place >= firstPlaces[record + 1]) continue;
    column.push_back({static_cast<int>(record) + 1,
                      std::string_view(text).substr(places[place].begin, places[place].length)});
  }
  return column;
}

RecordList::RecordList() : state_(std::make_unique<State>()) {}
RecordList::~RecordList() = default;
RecordList::RecordList(RecordList&&) noexcept = default;
RecordList& RecordList::operator=(RecordList&&) noexcept = default;

void RecordList::Read(RecordList& list, std::string text, int fields, bool repairLast) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw RuntimeError(ErrorKind::OutOfMemory);
  }
  list = RecordList();
  State& state = *list.state_;
  state.text = std::move(text);
  for (const std::string_view line : Split(state.text, kLineEnd)) {
    state.Append(line, static_cast<std::size_t>(fields));
  }
  if (repairLast) state.RepairLast(static_cast<std::size_t>(fields));
}

std::uint64_t RecordList::Edition() const { return state_->edition; }

int RecordList::Count() const { return static_cast<int>(state_->Count()); }

int RecordList::FieldCount(int record) const {
  if (record < 1 || record > Count()) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  const auto at = static_cast<std::size_t>(record);
  return static_cast<int>(state_->firstPlaces[at] - state_->firstPlaces[at - 1]);
}

std::string_view RecordList::Field(int record, int field) const {
  if (field < 1 || field > FieldCount(record)) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  const State::Place& place =
      state_->places[state_->firstPlaces[static_cast<std::size_t>(record) - 1] +
                     static_cast<std::size_t>(field) - 1];
  return std::string_view(state_->text).substr(place.begin, place.length);
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

const EqualityIndex& RecordList::State::EqualWithoutCr(int field) {
  return IndexOf(equalWithoutCr, field, [&] {
    return EqualityIndex(Column(field), EqualityIndex::CarriageReturns::TakenOut);
  });
}

int RecordList::FindEqualWithoutCr(int field, std::string_view text) const {
  return state_->EqualWithoutCr(field).Find(text);
}

void RecordList::PrefetchEqualWithoutCr(int field, std::string_view text) const {
  state_->EqualWithoutCr(field).Prefetch(text);
}

void RecordList::PrefetchRecord(int record) const {
  __builtin_prefetch(&state_->places[state_->firstPlaces[static_cast<std::size_t>(record) - 1]]);
}

int RecordList::FindContaining(int field, std::string_view text) const {
  const auto make = [&] { return ContainingIndex(state_->Column(field)); };
  return IndexOf(state_->containing, field, make).Find(text);
}

}  // namespace tallyrun
