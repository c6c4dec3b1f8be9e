#include "core/text/TextTable.h"

#include <bit>
#include <utility>

namespace tallyrun {

void TextTable::Put(const Slot& slot, std::uint64_t hash, std::vector<Slot>& slots) {
  const std::size_t mask = slots.size() - 1;
  std::size_t at = hash & mask;
  while (slots[at].number != kNone) at = (at + 1) & mask;
  slots[at] = slot;
}

void TextTable::Rehash(std::size_t slots) {
  std::vector<Slot> rehashed(slots);
  for (const Slot& slot : slots_) {
    if (slot.number == kNone) continue;
    Put(slot, slot.length <= kWordBytes ? HashWord(slot.word, slot.length) : slot.word, rehashed);
  }
  slots_ = std::move(rehashed);
}

void TextTable::PrepareToAdd() {
  // At most two slots in three are taken.
  if ((used_ + 1) * 3 > slots_.size() * 2) Rehash(slots_.size() * 2);
}

void TextTable::Reserve(std::size_t texts) {
  const std::size_t slots = std::bit_ceil(texts * 3 / 2 + 1);
  if (slots > slots_.size()) Rehash(slots);
}

void TextTable::Add(const TextKey& key, std::uint32_t number) {
  PrepareToAdd();
  Put({key.word, static_cast<std::uint32_t>(key.text.size()), number}, key.hash, slots_);
  ++used_;
}

}  // namespace tallyrun
