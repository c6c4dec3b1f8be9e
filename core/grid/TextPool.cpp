#include "core/grid/TextPool.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "core/RuntimeError.h"
#include "core/text/ShortText.h"

namespace tallyrun {
namespace {
constexpr std::size_t kFirstSlots = 64;  // a power of two, as every size is
constexpr std::size_t kBlockBytes = std::size_t{256} * 1024;
constexpr char kNoText[kReadableBehindText + 1] = {};
}  // namespace

TextPool::TextPool() : slots_(kFirstSlots) { entries_.push_back({kNoText, 0}); }

void TextPool::Clear() {
  edition_ = NewEdition();
  entries_.resize(1);
  std::fill(slots_.begin(), slots_.end(), Slot{});
  longTexts_.clear();
  usedBlocks_ = 0;
  free_ = nullptr;
  freeBytes_ = 0;
  anyLineEnd_ = false;
  anyBlankText_ = false;
}

const char* TextPool::Store(std::string_view text) {
  if (text.size() > kBlockBytes / 4) {
    longTexts_.push_back(std::make_unique<char[]>(text.size() + kReadableBehindText));
    return static_cast<const char*>(std::memcpy(longTexts_.back().get(), text.data(), text.size()));
  }
  if (text.size() + kReadableBehindText > freeBytes_) {
    if (usedBlocks_ == blocks_.size()) {
      blocks_.push_back(std::make_unique_for_overwrite<char[]>(kBlockBytes));
    }
    free_ = blocks_[usedBlocks_++].get();
    freeBytes_ = kBlockBytes;
  }
  char* const stored = free_;
  std::memcpy(stored, text.data(), text.size());
  free_ += text.size();
  freeBytes_ -= text.size();
  return stored;
}

TextPool::Id TextPool::Add(const TextKey& key) {
  const std::string_view text = key.text;
  // The number's top bit belongs to the grid's cells, and a length is 32 bits wide.
  if (text.size() > std::numeric_limits<std::uint32_t>::max() ||
      entries_.size() >= std::numeric_limits<std::uint32_t>::max() / 2) {
    throw RuntimeError(ErrorKind::OutOfMemory);
  }
  // Before the text goes in, so that a failed allocation leaves the pool as it was. At most three
  // slots in four are taken.
  if (entries_.size() * 4 >= slots_.size() * 3) GrowSlots(slots_.size() * 2);
  const auto id = static_cast<Id>(entries_.size());
  entries_.push_back({Store(text), static_cast<std::uint32_t>(text.size())});
  PutIntoFreeSlot(id, key.hash);
  anyBlankText_ = anyBlankText_ || IsBlankText(text);
  anyLineEnd_ = anyLineEnd_ || text.find("\r\n") != std::string_view::npos;
  return id;
}

void TextPool::PutIntoFreeSlot(Id id, std::uint64_t hash) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at].id != kEmpty) at = (at + 1) & mask;
  slots_[at] = {static_cast<std::uint32_t>(hash >> 32), id};
}

void TextPool::Reserve(std::size_t texts) {
  if (texts * 4 >= slots_.size() * 3) GrowSlots(std::bit_ceil(texts + texts / 2));
  entries_.reserve(texts);
}

// The texts are hashed anew, in the order in which they lie in memory.
void TextPool::GrowSlots(std::size_t size) {
  slots_ = std::vector<Slot>(size);
  for (Id id = 1; id < entries_.size(); ++id) PutIntoFreeSlot(id, TextKey(View(id)).hash);
}

}  // namespace tallyrun
