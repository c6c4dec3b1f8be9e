#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "core/grid/RadixSort.h"

namespace tallyrun {
namespace {

TEST(RadixSortTest, IsAStableSortByKey) {
  for (unsigned seed = 1; seed <= 100; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    const int shift = static_cast<int>(random() % 64);
    // Keys that differ in some of their bits alone, high or low.
    const std::uint64_t mask = (std::uint64_t{1} << random() % 64) - 1;
    std::vector<KeyedItem> items(random() % 3000);
    for (std::uint32_t at = 0; at < items.size(); ++at)
      items[at] = {(random() & mask) << shift, at};

    std::vector<KeyedItem> expected = items;
    std::stable_sort(expected.begin(), expected.end(),
                     [](const KeyedItem& a, const KeyedItem& b) { return a.key < b.key; });
    RadixSort(items);
    for (std::size_t at = 0; at < items.size(); ++at) {
      ASSERT_EQ(items[at].key, expected[at].key);
      ASSERT_EQ(items[at].item, expected[at].item);
    }
  }
}

}  // namespace
}  // namespace tallyrun
