#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "core/text/SeparatorScan.h"

namespace tallyrun {
namespace {

TEST(SeparatorScanTest, FindsEveryPlaceThatALookAtEachByteFinds) {
  for (unsigned seed = 1; seed <= 500; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::string text(random() % 300, ' ');
    // Bytes beside the separators and their upper halves, which a careless comparison mistakes.
    for (char& byte : text) byte = "|\n\r}{\x0B\xFC\x8Axy"[random() % 10];

    std::vector<std::size_t> expected;
    std::size_t lineEnds = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
      if (text[place] == '|' || text[place] == '\n') expected.push_back(place);
      if (place > 0 && text[place - 1] == '\r' && text[place] == '\n') ++lineEnds;
    }
    std::vector<std::size_t> found;
    ForEachSeparator(text, '|', '\n', [&](std::size_t place) { found.push_back(place); });
    EXPECT_EQ(found, expected);
    EXPECT_EQ(CountLineEnds(text), lineEnds);
    const std::size_t from = random() % (text.size() + 1);
    EXPECT_EQ(FindSeparator(text, from, '|', '\n'),
              std::min(text.size(), std::string_view(text).find_first_of("|\n", from)));
  }
}

}  // namespace
}  // namespace tallyrun
