#include "core/RadixSort.h"

#include <algorithm>
#include <array>

namespace tallyrun {
namespace {

constexpr int kDigitBits = 11;
constexpr std::size_t kPlaces = std::size_t{1} << kDigitBits;
// Below this many, going through the places costs more than comparing.
constexpr std::size_t kFew = 512;

std::size_t DigitOf(std::uint64_t key, int shift) { return key >> shift & (kPlaces - 1); }

void Distribute(const std::vector<KeyedItem>& from, std::vector<KeyedItem>& to, int shift) {
  std::array<std::size_t, kPlaces> counts{};
  for (const KeyedItem& each : from) ++counts[DigitOf(each.key, shift)];
  std::size_t begin = 0;
  for (std::size_t& place : counts) {
    const std::size_t count = place;
    place = begin;
    begin += count;
  }
  for (const KeyedItem& each : from) to[counts[DigitOf(each.key, shift)]++] = each;
}

}  // namespace

void RadixSort(std::vector<KeyedItem>& items) {
  if (items.size() < kFew) {
    std::stable_sort(items.begin(), items.end(),
                     [](const KeyedItem& a, const KeyedItem& b) { return a.key < b.key; });
    return;
  }
  std::uint64_t differing = 0;
  for (const KeyedItem& each : items) differing |= each.key ^ items.front().key;
  std::vector<KeyedItem> other(items.size());
  for (int shift = 0; shift < 64; shift += kDigitBits) {
    if (DigitOf(differing, shift) == 0) continue;
    Distribute(items, other, shift);
    items.swap(other);
  }
}

}  // namespace tallyrun
