#include "core/TextPool.h"

#include <cstring>
#include <functional>
#include <limits>

#include "core/RuntimeError.h"

namespace tallyrun {
namespace {
constexpr std::size_t kBlockBytes = 256 * 1024;
constexpr std::size_t kFirstSlots = 64;
}  // namespace

TextPool::TextPool() : slots_(kFirstSlots, kEmpty) { entries_.push_back({"", 0, 0}); }

std::uint32_t TextPool::HashOf(std::string_view text) {
  const std::size_t hash = std::hash<std::string_view>()(text);
  return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

const char* TextPool::Store(std::string_view text) {
  if (text.size() > freeBytes_) {
    const std::size_t bytes = text.size() > kBlockBytes / 4 ? text.size() : kBlockBytes;
    blocks_.push_back(std::make_unique<char[]>(bytes));
    if (bytes == text.size()) {  // a text of its own; the block in use stays in use
      return static_cast<const char*>(std::memcpy(blocks_.back().get(), text.data(), bytes));
    }
    free_ = blocks_.back().get();
    freeBytes_ = bytes;
  }
  char* const stored = free_;
  std::memcpy(stored, text.data(), text.size());
  free_ += text.size();
  freeBytes_ -= text.size();
  return stored;
}

void TextPool::Rehash(std::size_t slots) {
  slots_.assign(slots, kEmpty);
  const std::size_t mask = slots - 1;
  for (Id id = 1; id < entries_.size(); ++id) {
    std::size_t at = entries_[id].hash & mask;
    while (slots_[at] != kEmpty) at = (at + 1) & mask;
    slots_[at] = id;
  }
}

TextPool::Id TextPool::Intern(std::string_view text) {
  if (text.empty()) return kEmpty;
  // The number's top bit belongs to the grid's cells, and a length is 32 bits wide.
  if (text.size() > std::numeric_limits<std::uint32_t>::max() ||
      entries_.size() >= std::numeric_limits<std::uint32_t>::max() / 2) {
    throw RuntimeError(ErrorKind::OutOfMemory);
  }
  // Before the text goes in, so that a failed allocation leaves the pool as it was.
  if (entries_.size() * 2 >= slots_.size()) Rehash(slots_.size() * 2);
  const std::uint32_t hash = HashOf(text);
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at] != kEmpty) {
    const Entry& entry = entries_[slots_[at]];
    if (entry.hash == hash && View(slots_[at]) == text) return slots_[at];
    at = (at + 1) & mask;
  }
  const Id id = static_cast<Id>(entries_.size());
  entries_.push_back({Store(text), static_cast<std::uint32_t>(text.size()), hash});
  slots_[at] = id;
  return id;
}

}  // namespace tallyrun
