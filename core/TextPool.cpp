#include "core/TextPool.h"

#include <cstring>
#include <limits>

#include "core/RuntimeError.h"
#include "core/ShortText.h"

namespace tallyrun {
namespace {
constexpr std::size_t kBlockBytes = 256 * 1024;
constexpr char kNoText[kReadableBehindText + 1] = {};
}  // namespace

TextPool::TextPool() { entries_.push_back({kNoText, 0}); }

const char* TextPool::Store(std::string_view text) {
  if (text.size() + kReadableBehindText > freeBytes_) {
    const bool isLong = text.size() > kBlockBytes / 4;
    const std::size_t bytes = isLong ? text.size() + kReadableBehindText : kBlockBytes;
    blocks_.push_back(std::make_unique<char[]>(bytes));
    if (isLong) {  // a block of its own; the one in use stays in use
      return static_cast<const char*>(std::memcpy(blocks_.back().get(), text.data(), text.size()));
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

TextPool::Id TextPool::Add(std::string_view text) {
  // The number's top bit belongs to the grid's cells, and a length is 32 bits wide.
  if (text.size() > std::numeric_limits<std::uint32_t>::max() ||
      entries_.size() >= std::numeric_limits<std::uint32_t>::max() / 2) {
    throw RuntimeError(ErrorKind::OutOfMemory);
  }
  // Before the text goes in, so that a failed allocation leaves the pool as it was.
  ids_.PrepareToAdd();
  const auto id = static_cast<Id>(entries_.size());
  entries_.push_back({Store(text), static_cast<std::uint32_t>(text.size())});
  ids_.Add(text, id);
  anyLineEnd_ = anyLineEnd_ || text.find("\r\n") != std::string_view::npos;
  return id;
}

}  // namespace tallyrun
