// A small table that says "no" to nearly every anchor that is not in it: one bit per hash.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace tallyrun {

// The last `size` bytes of a text as a number; at most eight.
inline std::uint64_t AnchorOf(std::string_view text, std::size_t size) {
  std::uint64_t anchor = 0;
  std::memcpy(&anchor, text.data() + text.size() - size, size);
  return anchor;
}

// The top bits are of use.
inline std::uint64_t HashAnchor(std::uint64_t anchor) {
  return anchor * 0x9E3779B97F4A7C15u;  // 2^64 over the golden ratio
}

class AnchorBits {
 public:
  explicit AnchorBits(std::size_t anchors) {
    const std::size_t bits = std::clamp(std::bit_ceil(anchors * kBitsPerAnchor), kLeast, kMost);
    words_.resize(bits / kWordBits);
    shift_ = 64 - std::countr_zero(bits);
  }

  void Set(std::uint64_t anchor) {
    const std::uint64_t bit = HashAnchor(anchor) >> shift_;
    words_[bit / kWordBits] |= std::uint64_t{1} << (bit % kWordBits);
  }
  bool Has(std::uint64_t anchor) const {
    const std::uint64_t bit = HashAnchor(anchor) >> shift_;
    return (words_[bit / kWordBits] >> (bit % kWordBits) & 1) != 0;
  }
  // Fetches what Has will look at, for an anchor that is asked for a little later.
  void Prefetch(std::uint64_t anchor) const {
    __builtin_prefetch(&words_[(HashAnchor(anchor) >> shift_) / kWordBits]);
  }

 private:
  static constexpr std::size_t kWordBits = 64;
  // One anchor in sixteen is let through in vain. The table stops growing at 8 MB, past which it
  // no longer stays in a processor's cache.
  static constexpr std::size_t kBitsPerAnchor = 16;
  static constexpr std::size_t kLeast = 1024;
  static constexpr std::size_t kMost = std::size_t{1} << 26;

  std::vector<std::uint64_t> words_;
  int shift_ = 0;
};

}  // namespace tallyrun
