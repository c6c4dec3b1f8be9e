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

#include "core/ShortText.h"

namespace tallyrun {

class TextTable {
 public:
  static constexpr std::uint32_t kNone = 0;

  TextTable() : slots_(kFirstSlots) {}

  // The number of `text`, or kNone. `textOf(number)` gives the text that a number was added for.
  template <class TextOf>
  std::uint32_t Find(std::string_view text, TextOf textOf) const {
    const Slot wanted = SlotFor(text);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = HashOf(wanted) & mask; slots_[at].number != kNone; at = (at + 1) & mask) {
      const Slot& slot = slots_[at];
      if (slot.key != wanted.key || slot.length != wanted.length) continue;
      if (text.size() <= kWordBytes || SameText(textOf(slot.number), text)) return slot.number;
    }
    return kNone;
  }

  // Makes room for one text more. Add raises nothing when it comes before.
  void PrepareToAdd();
  // Adds a text that is not in the table, with a number that is not kNone.
  void Add(std::string_view text, std::uint32_t number);
  void Reserve(std::size_t texts);

  // Fetches what Find will look at, for texts that are looked for a little later.
  void Prefetch(std::string_view text) const {
    __builtin_prefetch(&slots_[HashOf(SlotFor(text)) & (slots_.size() - 1)]);
  }

 private:
  static constexpr std::size_t kFirstSlots = 64;  // a power of two, as every size is

  struct Slot {
    std::uint64_t key = 0;
    std::uint32_t length = 0;
    std::uint32_t number = kNone;  // kNone marks a free slot
  };

  static Slot SlotFor(std::string_view text) {
    return {text.size() <= kWordBytes ? WordOf(text) : HashText(text),
            static_cast<std::uint32_t>(text.size()), kNone};
  }
  static std::uint64_t HashOf(const Slot& slot) {
    return slot.length <= kWordBytes ? HashWord(slot.key, slot.length) : slot.key;
  }
  static void Put(const Slot& slot, std::vector<Slot>& slots);
  void Rehash(std::size_t slots);

  std::vector<Slot> slots_;
  std::size_t used_ = 0;
};

}  // namespace tallyrun
