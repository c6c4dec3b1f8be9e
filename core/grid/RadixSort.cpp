#include "core/grid/RadixSort.h"

#include <algorithm>
#include <array>
#include <bit>

namespace tallyrun {
namespace {

constexpr int kMostDigitBits = 11;
// Below this many, going through the places costs more than comparing.
constexpr std::size_t kFew = 512;

// The bits of a word that one pass goes by.
struct Digit {
  int shift;
  std::uint64_t mask;

  std::size_t Of(std::uint64_t key) const { return static_cast<std::size_t>(key >> shift & mask); }
};

template <class Item, class KeyOf>
void Distribute(const std::vector<Item>& from, std::vector<Item>& to, Digit digit, KeyOf keyOf) {
  std::array<std::uint32_t, std::size_t{1} << kMostDigitBits> places{};
  for (const Item& each : from) ++places[digit.Of(keyOf(each))];
  std::uint32_t begin = 0;
  for (std::uint32_t& place : places) {
    const std::uint32_t count = place;
    place = begin;
    begin += count;
  }
  for (const Item& each : from) to[places[digit.Of(keyOf(each))]++] = each;
}

template <class Item, class KeyOf>
void SortByKey(std::vector<Item>& items, KeyOf keyOf) {
  if (items.size() < kFew) {
    std::stable_sort(items.begin(), items.end(),
                     [keyOf](const Item& a, const Item& b) { return keyOf(a) < keyOf(b); });
    return;
  }
  std::uint64_t differing = 0;
  for (const Item& each : items) differing |= keyOf(each) ^ keyOf(items.front());
  if (differing == 0) return;
  // Digits of one size, no more of them than needed.
  const int first = std::countr_zero(differing);
  const int bits = static_cast<int>(std::bit_width(differing)) - first;
  const int passes = (bits + kMostDigitBits - 1) / kMostDigitBits;
  const int digitBits = (bits + passes - 1) / passes;
  std::vector<Item> other(items.size());
  for (int pass = 0; pass < passes; ++pass) {
    const Digit digit = {first + pass * digitBits, (std::uint64_t{1} << digitBits) - 1};
    if (digit.Of(differing) == 0) continue;
    Distribute(items, other, digit, keyOf);
    items.swap(other);
  }
}

}  // namespace

void RadixSort(std::vector<KeyedItem>& items) {
  SortByKey(items, [](const KeyedItem& each) { return each.key; });
}

void RadixSort(std::vector<std::uint64_t>& words, int firstBit) {
  SortByKey(words, [firstBit](std::uint64_t word) { return word >> firstBit; });
}

}  // namespace tallyrun
