#include "core/text/TextTable.h"

#include <cstring>
#include <limits>

#include "core/RuntimeError.h"

namespace tallyrun {
namespace {

constexpr std::size_t kFirstSlots = 64;
constexpr std::size_t kWordBytes = sizeof(std::uint64_t);

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) {
  hash = (hash ^ word) * 0x9E3779B97F4A7C15u;  // 2^64 over the golden ratio
  return hash ^ hash >> 32;
}

template <class Word>
std::uint64_t WordAt(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

// Of up to eight bytes a number that no other text of the same length has: two words that may
// overlap.
std::uint64_t WordOf(std::string_view text) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  if (text.size() >= 4) {
    return WordAt<std::uint32_t>(begin) << 32 | WordAt<std::uint32_t>(end - 4);
  }
  if (text.size() >= 2) {
    return WordAt<std::uint16_t>(begin) << 16 | WordAt<std::uint16_t>(end - 2);
  }
  return text.empty() ? 0 : static_cast<unsigned char>(*begin);
}

}  // namespace

TextTable::TextTable()
    : bytes_(std::make_unique<std::pmr::monotonic_buffer_resource>()), slots_(kFirstSlots) {}

std::uint32_t TextTable::Intern(std::string_view text) {
  Slot slot = SlotFor(text);
  std::size_t at = Find(slot, text);
  if (!slots_[at].IsFree()) return slots_[at].number;
  if ((texts_.size() + 1) * 4 > slots_.size() * 3) {
    Grow();
    at = Find(slot, text);
  }
  auto* const stored = static_cast<char*>(bytes_->allocate(text.size(), 1));
  text.copy(stored, text.size());
  slot.number = static_cast<std::uint32_t>(texts_.size());
  texts_.emplace_back(stored, text.size());
  slots_[at] = slot;
  return slot.number;
}

std::optional<std::uint32_t> TextTable::Find(std::string_view text) const {
  const Slot& slot = slots_[Find(SlotFor(text), text)];
  return slot.IsFree() ? std::nullopt : std::optional(slot.number);
}

TextTable::Slot TextTable::SlotFor(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw RuntimeError(ErrorKind::OutOfMemory);
  }
  Slot slot;
  slot.length = static_cast<std::uint32_t>(text.size());
  for (; text.size() > kWordBytes; text.remove_prefix(kWordBytes)) {
    slot.word = Mix(slot.word, WordAt<std::uint64_t>(text.data()));
  }
  slot.word = slot.length <= kWordBytes ? WordOf(text) : Mix(slot.word, WordOf(text));
  return slot;
}

std::size_t TextTable::Find(const Slot& slot, std::string_view text) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = Mix(slot.length, slot.word) & mask;
  for (; !slots_[at].IsFree(); at = (at + 1) & mask) {
    if (slots_[at].word != slot.word || slots_[at].length != slot.length) continue;
    if (slot.length <= kWordBytes || texts_[slots_[at].number] == text) break;
  }
  return at;
}

void TextTable::Grow() {
  std::vector<Slot> old(slots_.size() * 2);
  old.swap(slots_);
  const std::size_t mask = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (slot.IsFree()) continue;
    std::size_t at = Mix(slot.length, slot.word) & mask;
    while (!slots_[at].IsFree()) at = (at + 1) & mask;
    slots_[at] = slot;
  }
}

}  // namespace tallyrun
