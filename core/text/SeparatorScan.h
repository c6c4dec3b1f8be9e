// Finds the separators of a table-shaped text, sixteen bytes at a step. A file's fields are so
// short that a library's search started anew for each of them costs more than the bytes do; in one
// pass, 64 bytes become a word with a bit per separator, and only the bits are gone through.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tallyrun {

namespace SeparatorScanDetail {

inline constexpr std::size_t kBlock = 64;

// A bit for each of the 64 bytes that is `first` or `second`.
inline std::uint64_t MaskOf(const char* block, char first, char second) {
  std::uint64_t mask = 0;
#if defined(__SSE2__)
  const __m128i firsts = _mm_set1_epi8(first);
  const __m128i seconds = _mm_set1_epi8(second);
  for (unsigned step = 0; step < kBlock / sizeof(__m128i); ++step) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block) + step);
    const __m128i found =
        _mm_or_si128(_mm_cmpeq_epi8(bytes, firsts), _mm_cmpeq_epi8(bytes, seconds));
    mask |= std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(found))}
            << (step * sizeof(__m128i));
  }
#else
  for (std::size_t at = 0; at < kBlock; ++at) {
    mask |= std::uint64_t{block[at] == first || block[at] == second} << at;
  }
#endif
  return mask;
}

}  // namespace SeparatorScanDetail

// Calls visit(place) for every byte of `text` that is `first` or `second`, first place first.
template <class Visit>
void ForEachSeparator(std::string_view text, char first, char second, Visit&& visit) {
  using namespace SeparatorScanDetail;
  const auto visitAll = [&visit](std::uint64_t mask, std::size_t begin) {
    for (; mask != 0; mask &= mask - 1) {
      visit(begin + static_cast<std::size_t>(std::countr_zero(mask)));
    }
  };
  std::size_t begin = 0;
  for (; begin + kBlock <= text.size(); begin += kBlock) {
    visitAll(MaskOf(text.data() + begin, first, second), begin);
  }
  const std::size_t rest = text.size() - begin;
  if (rest == 0) return;
  char block[kBlock] = {};
  std::memcpy(block, text.data() + begin, rest);
  visitAll(MaskOf(block, first, second) & (~std::uint64_t{0} >> (kBlock - rest)), begin);
}

// The first place from `from` on where `text` has `first` or `second`; its length when there is
// none. For one who knows where most separators are, and looks for the next.
inline std::size_t FindSeparator(std::string_view text, std::size_t from, char first, char second) {
#if defined(__SSE2__)
  const __m128i firsts = _mm_set1_epi8(first);
  const __m128i seconds = _mm_set1_epi8(second);
  for (; from + sizeof(__m128i) <= text.size(); from += sizeof(__m128i)) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + from));
    const int found = _mm_movemask_epi8(
        _mm_or_si128(_mm_cmpeq_epi8(bytes, firsts), _mm_cmpeq_epi8(bytes, seconds)));
    if (found != 0) {
      return from + static_cast<std::size_t>(std::countr_zero(static_cast<unsigned>(found)));
    }
  }
#endif
  while (from < text.size() && text[from] != first && text[from] != second) ++from;
  return from;
}

// How often CR LF stands in the text.
std::size_t CountLineEnds(std::string_view text);

}  // namespace tallyrun
