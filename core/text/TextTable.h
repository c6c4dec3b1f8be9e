// Which number belongs to a text: the hash table of the cells' pool and of the lists' indexes.
// Texts are kept by their owner.
//
// What tells a text from others stands in the slot itself: its length and either all its bytes,
// when it is as short as most codes are, or its hash. So a short text is found with one look at
// memory, and a slot taken by another text is passed without looking at that text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "core/text/ShortText.h"

namespace tallyrun {

// A text with what a table looks for, worked out once for several tables or looks.
struct TextKey {
  explicit TextKey(std::string_view of)
      : text(of),
        word(of.size() <= kWordBytes ? WordOf(of) : HashText(of)),
        hash(of.size() <= kWordBytes ? HashWord(word, of.size()) : word) {}
  // Empty; what an array is made of before it is filled.
  TextKey() : TextKey(std::string_view()) {}

  std::string_view text;
  std::uint64_t word;  // all bytes of a short text, else the hash
  std::uint64_t hash;
};

class TextTable {
 public:
  static constexpr std::uint32_t kNone = 0;

  TextTable() : slots_(kFirstSlots) {}

  // The number of the text, or kNone. `textOf(number)` gives the text that a number was added for.
  template <class TextOf>
  std::uint32_t Find(const TextKey& wanted, TextOf textOf) const {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = wanted.hash & mask; slots_[at].number != kNone; at = (at + 1) & mask) {
      const Slot& slot = slots_[at];
      if (slot.word != wanted.word || slot.length != wanted.text.size()) continue;
      if (slot.length <= kWordBytes || SameText(textOf(slot.number), wanted.text)) {
        return slot.number;
      }
    }
    return kNone;
  }

  // Makes room for one text more. Add raises nothing when it comes before.
  void PrepareToAdd();
  // Adds a text that is not in the table, with a number that is not kNone.
  void Add(const TextKey& key, std::uint32_t number);
  void Reserve(std::size_t texts);

  // Fetches what Find will look at, for a text that is looked for a little later.
  void Prefetch(const TextKey& key) const {
    __builtin_prefetch(&slots_[key.hash & (slots_.size() - 1)]);
  }

 private:
  static constexpr std::size_t kFirstSlots = 64;  // a power of two, as every size is

  struct Slot {
    std::uint64_t word = 0;
    std::uint32_t length = 0;
    std::uint32_t number = kNone;  // kNone marks a free slot
  };

  static void Put(const Slot& slot, std::uint64_t hash, std::vector<Slot>& slots);
  void Rehash(std::size_t slots);

  std::vector<Slot> slots_;
  std::size_t used_ = 0;
};

}  // namespace tallyrun
