// The one-pass search against the plain reading of every line for every pair.
#include <algorithm>
#include <deque>
#include <gtest/gtest.h>
#include <random>
#include <set>

#include "core/files/modFileIO.h"
#include "holding/HoldingSearch.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {
namespace {

using Line = std::string_view;

constexpr char kHeader[] = "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n";

// The balances by pair, or "missing".
std::vector<std::string> ReadRowByRow(const std::string& file, const HoldingQuery& query) {
  std::vector<std::string> balances;
  auto lines = Split(file, "\r\n");
  lines.erase(lines.begin(), lines.begin() + 8);
  for (const auto& pair : query.pairs) {
    const auto line = std::find_if(lines.begin(), lines.end(), [&](Line each) {
      return each.find(query.boIds[pair.boId]) != each.npos &&
             each.find(query.isins[pair.isin]) != each.npos;
    });
    const auto fields = line == lines.end() ? std::vector<Line>{"missing"} : Split(*line, " ");
    balances.emplace_back(fields.empty() ? Line() : fields.back());
  }
  return balances;
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
      // No two lines have one balance; not all are written plainly.
      const std::string lineEnd = (Below(4) == 0 ? " 0" : " ") + std::to_string(pieces) + "\r\n";
      const Line choices[] = {other, query.boIds[Below(query.boIds.size())], " ",
                              query.isins[Below(query.isins.size())], lineEnd};
      file += choices[Below(5)];
    }
  }

  std::mt19937 random;
  std::deque<std::string> kept;  // what the query's texts are views of
  HoldingQuery query;
  std::string file = kHeader;
};

TEST(HoldingSearchTest, FindsWhatReadingRowByRowFinds) {
  const TempFolder folder;
  int found = 0;
  int missing = 0;
  for (unsigned seed = 1; seed <= 3000; ++seed) {
    RandomCase random(seed);
    folder.Write("holdings.txt", random.file);
    LineBlocks blocks(folder / "holdings.txt", 1 + random.Below(300));
    HoldingFile file(blocks);
    const HoldingBalances balances = FindHoldings(file, random.query);
    std::vector<std::string> texts;
    for (std::size_t pair = 0; pair < random.query.pairs.size(); ++pair) {
      const bool isMissing = balances.IsMissing(pair);
      texts.push_back(isMissing ? "missing" : balances.TextOf(pair));
      ++(isMissing ? missing : found);
    }
    ASSERT_EQ(texts, ReadRowByRow(random.file, random.query)) << "seed " << seed;
  }
  // The cases are worth something only while both outcomes are common.
  EXPECT_GT(std::min(found, missing), 10000);
}

}  // namespace
}  // namespace tallyrun::testing
