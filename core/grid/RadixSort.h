// Sorting many numbered items by a key of up to 64 bits: a pass per eleven bits or fewer that
// differ at all, each a stable distribution into their places. For a million items that is a
// handful of passes over memory in order, where comparisons would jump about in it twenty times
// per item.
#pragma once

#include <cstdint>
#include <vector>

namespace tallyrun {

struct KeyedItem {
  std::uint64_t key;
  std::uint32_t item;
};

// Stable: items of equal keys stay in their order.
void RadixSort(std::vector<KeyedItem>& items);

// The same for items that stand in one word with their key: the key is all bits from `firstBit`.
void RadixSort(std::vector<std::uint64_t>& words, int firstBit);

}  // namespace tallyrun
