#include "holding/AnchorFilter.h"

#include <algorithm>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tallyrun {

void AnchorFilter::Add(std::uint64_t anchor) {
  std::array<std::uint8_t, kAnchorBytes> bytes;
  std::memcpy(bytes.data(), &anchor, sizeof anchor);
  for (std::size_t at = 0; at < kAnchorBytes; ++at) {
    const std::uint8_t byte = bytes[at];
    const int least = std::min(least_[at], byte);
    const int greatest = std::max<int>(least_[at] + span_[at], byte);
    // Before the first one the least byte is the greatest there is.
    span_[at] = static_cast<std::uint8_t>(isEmpty_ ? 0 : greatest - least);
    least_[at] = static_cast<std::uint8_t>(least);
  }
  isEmpty_ = false;
}

#if defined(__SSE2__)

AnchorFilter::Masks AnchorFilter::MasksOf(const char* block) const {
  constexpr std::size_t kStep = sizeof(__m128i);
  const __m128i lineFeed = _mm_set1_epi8('\n');
  const auto load = [](const char* bytes) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
  };
  const auto bitsOf = [](__m128i bytes) {
    return std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(bytes))};
  };
  Masks masks;
  for (std::size_t step = 0; step < kBlock; step += kStep) {
    // What a byte is above its span stays; an anchor may end where nothing is left of any.
    __m128i above = _mm_setzero_si128();
    for (std::size_t at = 0; at < kAnchorBytes; ++at) {
      const __m128i bytes = load(block + step + at - kBefore);
      const __m128i least = _mm_set1_epi8(static_cast<char>(least_[at]));
      const __m128i span = _mm_set1_epi8(static_cast<char>(span_[at]));
      above = _mm_or_si128(above, _mm_subs_epu8(_mm_sub_epi8(bytes, least), span));
    }
    masks.mayEnd |= bitsOf(_mm_cmpeq_epi8(above, _mm_setzero_si128())) << step;
    masks.lineFeeds |= bitsOf(_mm_cmpeq_epi8(load(block + step), lineFeed)) << step;
  }
  return masks;
}

#else

AnchorFilter::Masks AnchorFilter::MasksOf(const char* block) const {
  Masks masks;
  for (std::size_t place = 0; place < kBlock; ++place) {
    bool mayEnd = true;
    for (std::size_t at = 0; at < kAnchorBytes; ++at) {
      const auto byte = static_cast<std::uint8_t>(block[place + at - kBefore]);
      mayEnd = mayEnd && static_cast<std::uint8_t>(byte - least_[at]) <= span_[at];
    }
    masks.mayEnd |= std::uint64_t{mayEnd} << place;
    masks.lineFeeds |= std::uint64_t{block[place] == '\n'} << place;
  }
  return masks;
}

#endif

AnchorFilter::Masks AnchorFilter::MasksAt(std::string_view text, std::size_t begin,
                                          std::size_t end) const {
  const std::size_t inside = std::min(kBlock, end - begin);
  const std::uint64_t isInside = ~std::uint64_t{0} >> (kBlock - inside);
  Masks masks;
  if (begin >= kBefore && begin + kBlock <= text.size()) {
    masks = MasksOf(text.data() + begin);
  } else {
    // The first and the last block reach beyond the text.
    char copy[kBefore + kBlock] = {};
    const std::size_t before = std::min(begin, kBefore);
    std::memcpy(copy + kBefore - before, text.data() + begin - before, before + inside);
    masks = MasksOf(copy + kBefore);
    masks.mayEnd &= ~std::uint64_t{0} << (kBefore - before);
  }
  masks.mayEnd &= isInside;
  masks.lineFeeds &= isInside;
  return masks;
}

}  // namespace tallyrun
