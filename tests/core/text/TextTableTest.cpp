// The hash table of texts and the two routines below it against the library's.
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>

#include "core/text/ShortText.h"
#include "core/text/TextTable.h"

namespace tallyrun {
namespace {

// Few different bytes, the NUL among them, so that texts differ in one place or in length alone.
std::string RandomText(std::mt19937& random) {
  std::string text(random() % 21, '\0');
  for (char& byte : text) byte = "\0a\xFF"[random() % 40 == 0 ? random() % 3 : 1];
  return text;
}

TEST(TextTableTest, FindsWhatAMapFinds) {
  for (unsigned seed = 1; seed <= 50; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::vector<std::string> texts = {""};
    std::map<std::string, std::uint32_t> expected;
    TextTable table;
    if (seed % 2 == 0) table.Reserve(100);
    const auto textOf = [&](std::uint32_t number) { return std::string_view(texts[number]); };
    for (int step = 0; step < 2000; ++step) {
      const std::string text = RandomText(random);
      const auto known = expected.find(text);
      ASSERT_EQ(table.Find(TextKey(text), textOf), known == expected.end() ? 0 : known->second);
      if (known != expected.end() || random() % 2 == 0) continue;
      const auto number = static_cast<std::uint32_t>(texts.size());
      texts.push_back(text);
      expected.emplace(text, number);
      table.Add(TextKey(text), number);
    }
  }
}

TEST(ShortTextTest, ComparesAsTheLibraryDoes) {
  for (std::size_t size = 0; size <= 40; ++size) {
    const std::string text(size, 'x');
    EXPECT_TRUE(SameText(text, std::string(text)));
    EXPECT_FALSE(SameText(text, text + "x"));
    for (std::size_t at = 0; at < size; ++at) {
      std::string other = text;
      other[at] = 'y';
      EXPECT_FALSE(SameText(text, other)) << size << " " << at;
    }
  }
}

}  // namespace
}  // namespace tallyrun
