// The one-pass search against the plain reading of every line for every pair.
#include <algorithm>
#include <deque>
#include <gtest/gtest.h>
#include <random>
#include <set>

#include "holding/HoldingSearch.h"

namespace tallyrun {
namespace {

using Line = std::string_view;
using Lines = std::vector<std::optional<Line>>;

constexpr char kHeader[] = "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n";

Lines ReadRowByRow(const HoldingFile& file, const HoldingQuery& query) {
  Lines lines;
  for (const auto& pair : query.pairs) {
    std::optional<Line> first;
    file.ForEachHolding([&](Line line) {
      const bool matches = line.find(query.boIds[pair.boId]) != line.npos &&
                           line.find(query.isins[pair.isin]) != line.npos;
      if (matches) first = line;
      return !matches;
    });
    lines.push_back(first);
  }
  return lines;
}

// Small alphabets and short texts, so that texts lie in one another, overlap and are shared
// between BO IDs and ISINs.
struct RandomCase {
  std::size_t Below(std::size_t limit) { return random() % limit; }
  std::string Text(std::size_t longest) {
    std::string text;
    for (std::size_t left = Below(longest + 1); left > 0; --left) {
      text += "ab\r\n"[Below(10) == 0 ? Below(4) : Below(2)];
    }
    return text;
  }
  std::vector<Line> DistinctTexts() {
    std::set<Line> texts;
    for (std::size_t left = 1 + Below(8); left > 0; --left) {
      texts.insert(kept.emplace_back(Text(13)));
    }
    return {texts.begin(), texts.end()};
  }

  explicit RandomCase(unsigned seed) : random(seed) {
    query = {DistinctTexts(), DistinctTexts(), {}};
    for (std::uint32_t boId = 0; boId < query.boIds.size(); ++boId) {
      for (std::uint32_t isin = 0; isin < query.isins.size(); ++isin) {
        for (std::size_t times = Below(3); times > 0; --times) query.pairs.push_back({boId, isin});
      }
    }
    std::shuffle(query.pairs.begin(), query.pairs.end(), random);
    for (std::size_t pieces = Below(60); pieces > 0; --pieces) {
      const std::string other = Text(6);
      const Line choices[] = {other, query.boIds[Below(query.boIds.size())], " ",
                              query.isins[Below(query.isins.size())], "\r\n"};
      file += choices[Below(5)];
    }
  }

  std::mt19937 random;
  std::deque<std::string> kept;  // what the query's texts are views of
  HoldingQuery query;
  std::string file = kHeader;
};

TEST(HoldingSearchTest, FindsWhatReadingRowByRowFinds) {
  int found = 0;
  int missing = 0;
  for (unsigned seed = 1; seed <= 3000; ++seed) {
    const RandomCase random(seed);
    const HoldingFile file(random.file);
    const Lines expected = ReadRowByRow(file, random.query);
    const Lines lines = FindHoldings(file, random.query);
    ASSERT_EQ(lines, expected) << "seed " << seed;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      // The line itself, not one that reads the same.
      ASSERT_EQ(lines[i].value_or(Line()).data(), expected[i].value_or(Line()).data())
          << "seed " << seed;
      ++(lines[i] ? found : missing);
    }
  }
  // The cases are worth something only while both outcomes are common.
  EXPECT_GT(std::min(found, missing), 10000);
}

}  // namespace
}  // namespace tallyrun
