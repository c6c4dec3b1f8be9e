// Hashing and comparing texts of a few bytes to a few dozen, which is what cells and list fields
// are. The library's routines take any length and are called through a table; these are inlined
// and read eight bytes at a time, the last eight overlapping those before.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tallyrun {

// Stored texts keep this many bytes behind their end readable, so that a short one is copied in
// one step of fixed length.
inline constexpr std::size_t kReadableBehindText = 32;

namespace ShortTextDetail {

template <class Word>
Word Load(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

// Both halves of the product of two words: every bit of the result depends on all of both.
inline std::uint64_t Mix(std::uint64_t left, std::uint64_t right) {
  const auto product = static_cast<unsigned __int128>(left) * right;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

}  // namespace ShortTextDetail

inline constexpr std::size_t kWordBytes = sizeof(std::uint64_t);

// Of a text of at most kWordBytes: a number that no other text of the same length has.
inline std::uint64_t WordOf(std::string_view text) {
  using ShortTextDetail::Load;
  const char* const bytes = text.data();
  const std::size_t size = text.size();
  if (size == kWordBytes) return Load<std::uint64_t>(bytes);
  if (size >= 4) {
    return std::uint64_t{Load<std::uint32_t>(bytes)} << 32 | Load<std::uint32_t>(bytes + size - 4);
  }
  if (size == 0) return 0;
  const auto byte = [bytes](std::size_t at) {
    return std::uint64_t{static_cast<unsigned char>(bytes[at])};
  };
  return byte(0) << 16 | byte(size / 2) << 8 | byte(size - 1);
}

inline std::uint64_t HashWord(std::uint64_t word, std::size_t size) {
  return ShortTextDetail::Mix(0x8BB84B93962EACC9u ^ size ^ word, 0x9E3779B97F4A7C15u);
}

// A hash whose bits are all of use. The same for equal texts while the program runs; not to be
// stored.
inline std::uint64_t HashText(std::string_view text) {
  if (text.size() <= kWordBytes) return HashWord(WordOf(text), text.size());
  const char* bytes = text.data();
  const char* const last = bytes + text.size() - kWordBytes;
  std::uint64_t hash = text.size();
  for (; bytes < last; bytes += kWordBytes) {
    hash = HashWord(ShortTextDetail::Load<std::uint64_t>(bytes), hash);
  }
  return HashWord(ShortTextDetail::Load<std::uint64_t>(last), hash);
}

inline bool SameText(std::string_view left, std::string_view right) {
  using ShortTextDetail::Load;
  const std::size_t size = left.size();
  if (size != right.size()) return false;
  const char* a = left.data();
  const char* b = right.data();
  if (size >= 8) {
    for (const char* const last = a + size - 8; a < last; a += 8, b += 8) {
      if (Load<std::uint64_t>(a) != Load<std::uint64_t>(b)) return false;
    }
    return Load<std::uint64_t>(left.data() + size - 8) ==
           Load<std::uint64_t>(right.data() + size - 8);
  }
  if (size >= 4) {
    return Load<std::uint32_t>(a) == Load<std::uint32_t>(b) &&
           Load<std::uint32_t>(a + size - 4) == Load<std::uint32_t>(b + size - 4);
  }
  return size == 0 || (a[0] == b[0] && a[size / 2] == b[size / 2] && a[size - 1] == b[size - 1]);
}

}  // namespace tallyrun
