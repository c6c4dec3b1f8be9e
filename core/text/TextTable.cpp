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

// Of up to eight bytes a number that no other text of the same length has.
std::uint64_t WordOf(std::string_view text) {
  std::uint64_t word = 0;
  for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
  return word;
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
    std::uint64_t word = 0;
    std::memcpy(&word, text.data(), kWordBytes);
    slot.word = Mix(slot.word, word);
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
