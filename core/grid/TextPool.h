// Every distinct text stored once and known by a number: equal texts have equal numbers, so rows
// are compared and copied as numbers. Texts are never taken out; the pool is emptied whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "core/Edition.h"
#include "core/text/TextTable.h"

namespace tallyrun {

// Blanks alone, or nothing.
inline bool IsBlankText(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

class TextPool {
 public:
  using Id = std::uint32_t;
  static constexpr Id kEmpty = 0;  // the empty text

  TextPool();

  // The text's number, storing it when it is new.
  Id Intern(std::string_view text) { return text.empty() ? kEmpty : Intern(TextKey(text)); }
  // The same for a text that is not empty.
  Id Intern(const TextKey& key) {
    const std::size_t mask = slots_.size() - 1;
    const std::uint32_t tag = TagOf(key);
    for (std::size_t at = key.hash & mask; slots_[at].id != kEmpty; at = (at + 1) & mask) {
      if (slots_[at].tag == tag && SameText(View(slots_[at].id), key.text)) return slots_[at].id;
    }
    return Add(key);
  }
  // Fetches what Intern will look at, for a text that is interned a little later.
  void Prefetch(const TextKey& key) const {
    __builtin_prefetch(&slots_[key.hash & (slots_.size() - 1)]);
  }
  // Two steps more, for whoever gathers many: what the slot leads to, each fetched before, most
  // likely the text itself.
  void PrefetchEntry(const TextKey& key) const { PrefetchView(IdNear(key)); }
  void PrefetchText(const TextKey& key) const { __builtin_prefetch(View(IdNear(key)).data()); }
  // Room for as many texts.
  void Reserve(std::size_t texts);
  // Takes out every text, and keeps the room for new ones.
  void Clear();
  // The text stays where it is until the pool is emptied; kReadableBehindText bytes behind it
  // can be read.
  std::string_view View(Id id) const { return {entries_[id].text, entries_[id].length}; }
  // Fetches what View looks at, for a text that is viewed a little later.
  void PrefetchView(Id id) const { __builtin_prefetch(&entries_[id]); }
  // True when a text with a CR LF in it was ever stored.
  bool AnyLineEnd() const { return anyLineEnd_; }
  // True when a text of blanks alone was ever stored.
  bool AnyBlankText() const { return anyBlankText_; }
  std::uint64_t Edition() const { return edition_; }
  // Texts stored, the empty one included.
  std::size_t Size() const { return entries_.size(); }

 private:
  struct Entry {
    const char* text;
    std::uint32_t length;
  };

  // Most texts of a large sheet are met once or twice: what counts is that many slots are seen in
  // one look at memory, so a slot has no more than part of the hash beside the number.
  struct Slot {
    std::uint32_t tag = 0;
    Id id = kEmpty;  // kEmpty marks a free slot
  };

  Id IdNear(const TextKey& key) const { return slots_[key.hash & (slots_.size() - 1)].id; }
  static std::uint32_t TagOf(const TextKey& key) {
    return static_cast<std::uint32_t>(key.hash >> 32);
  }
  void GrowSlots(std::size_t size);
  void PutIntoFreeSlot(Id id, std::uint64_t hash);
  const char* Store(std::string_view text);
  Id Add(const TextKey& key);

  std::uint64_t edition_ = NewEdition();
  std::vector<Entry> entries_;
  std::vector<Slot> slots_;                         // open addressing; of all but the empty text
  std::vector<std::unique_ptr<char[]>> blocks_;     // of one size, filled one after the other
  std::vector<std::unique_ptr<char[]>> longTexts_;  // each too long for a block
  std::size_t usedBlocks_ = 0;
  char* free_ = nullptr;
  std::size_t freeBytes_ = 0;
  bool anyLineEnd_ = false;
  bool anyBlankText_ = false;
};

}  // namespace tallyrun
