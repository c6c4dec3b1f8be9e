#include "holding/TextMatcher.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tallyrun {
namespace {

// Room in the bit table per text: one place of a line in sixty-four is looked at in vain. The
// table stops growing at 8 MB, past which it no longer stays in a processor's cache.
constexpr std::size_t kBitsPerText = 64;
constexpr std::size_t kLeastBits = 1024;
constexpr std::size_t kMostBits = std::size_t{1} << 26;
constexpr std::uint64_t kHashFactor = 0x9E3779B97F4A7C15u;  // 2^64 over the golden ratio
constexpr int kWordBits = 64;

}  // namespace

template <class Anchor>
std::uint64_t TextMatcher::BitOf(const Anchors& anchors, const char* bytes) {
  Anchor anchor;
  std::memcpy(&anchor, bytes, sizeof anchor);
  return (static_cast<std::uint64_t>(anchor) * kHashFactor) >> anchors.shift;
}

template <class Anchor>
void TextMatcher::Prepare(Anchors& anchors, const std::vector<std::string_view>& texts) {
  if (texts.empty()) return;
  anchors.size = sizeof(Anchor);
  const std::size_t bits =
      std::clamp(std::bit_ceil(texts.size() * kBitsPerText), kLeastBits, kMostBits);
  anchors.present.assign(bits / kWordBits, 0);
  anchors.shift = kWordBits - std::countr_zero(bits);
  for (const std::string_view text : texts) {
    const std::uint64_t bit = BitOf<Anchor>(anchors, text.data() + text.size() - sizeof(Anchor));
    anchors.present[bit / kWordBits] |= std::uint64_t{1} << (bit % kWordBits);
    anchors.lengths.push_back(text.size());
  }
  std::sort(anchors.lengths.begin(), anchors.lengths.end());
  anchors.lengths.erase(std::unique(anchors.lengths.begin(), anchors.lengths.end()),
                        anchors.lengths.end());
}

TextMatcher::TextMatcher(const std::vector<std::string_view>& texts) {
  std::vector<std::string_view> eight, four, two, one;
  indexOf_.reserve(texts.size());
  for (const std::string_view text : texts) {
    indexOf_.emplace(text, static_cast<std::uint32_t>(indexOf_.size()));
    (text.size() >= 8   ? eight
     : text.size() >= 4 ? four
     : text.size() >= 2 ? two
                        : one)
        .push_back(text);
  }
  Prepare<std::uint64_t>(eight_, eight);
  Prepare<std::uint32_t>(four_, four);
  Prepare<std::uint16_t>(two_, two);
  Prepare<std::uint8_t>(one_, one);
}

template <class Anchor>
void TextMatcher::Scan(const Anchors& anchors, std::string_view line,
                       std::vector<std::uint32_t>& found) const {
  if (anchors.size == 0) return;
  for (std::size_t end = sizeof(Anchor); end <= line.size(); ++end) {
    const std::uint64_t bit = BitOf<Anchor>(anchors, line.data() + end - sizeof(Anchor));
    if ((anchors.present[bit / kWordBits] >> (bit % kWordBits) & 1) == 0) continue;
    for (const std::size_t length : anchors.lengths) {
      if (length > end) break;
      const auto text = indexOf_.find(line.substr(end - length, length));
      if (text != indexOf_.end()) found.push_back(text->second);
    }
  }
}

void TextMatcher::FindIn(std::string_view line, std::vector<std::uint32_t>& found) const {
  Scan<std::uint64_t>(eight_, line, found);
  Scan<std::uint32_t>(four_, line, found);
  Scan<std::uint16_t>(two_, line, found);
  Scan<std::uint8_t>(one_, line, found);
}

}  // namespace tallyrun
