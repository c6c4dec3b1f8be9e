// The one-pass search against the plain reading of every line for every pair.
#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>

#include "core/text/Split.h"
#include "holding/HoldingBalances.h"

namespace tallyrun::testing {
namespace {

using Line = std::string_view;

constexpr char kHeader[] = "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n";

// The balances by pair, or "missing".
std::vector<std::string> ReadRowByRow(const std::string& file, const WantedHoldings& wanted) {
  std::vector<std::string> balances;
  auto lines = Split(file, "\r\n");
  lines.erase(lines.begin(), lines.begin() + 8);
  for (const auto& pair : wanted.pairs) {
    const auto line = std::find_if(lines.begin(), lines.end(), [&](Line each) {
      return each.find(wanted.boIds[pair.boId]) != each.npos &&
             each.find(wanted.isins[pair.isin]) != each.npos;
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
  // Some end like the one before.
  std::vector<std::string> DistinctTexts() {
    std::set<std::string> texts;
    std::string last;
    for (std::size_t left = 1 + Below(8); left > 0; --left) {
      last = Below(3) == 0 ? Text(4) + last : Text(20);
      texts.insert(last);
    }
    return {texts.begin(), texts.end()};
  }

  explicit RandomCase(unsigned seed) : random(seed) {
    wanted = {DistinctTexts(), DistinctTexts(), {}};
    for (std::uint32_t boId = 0; boId < wanted.boIds.size(); ++boId) {
      for (std::uint32_t isin = 0; isin < wanted.isins.size(); ++isin) {
        for (std::size_t times = Below(3); times > 0; --times) wanted.pairs.push_back({boId, isin});
      }
    }
    std::shuffle(wanted.pairs.begin(), wanted.pairs.end(), random);
    for (std::size_t pieces = Below(60); pieces > 0; --pieces) {
      const std::string other = Text(6);
      // No two lines have one balance; not all are written plainly.
      const std::string lineEnd = (Below(4) == 0 ? " 0" : " ") + std::to_string(pieces) + "\r\n";
      const Line choices[] = {other, wanted.boIds[Below(wanted.boIds.size())], " ",
                              wanted.isins[Below(wanted.isins.size())], lineEnd};
      file += choices[Below(5)];
    }
  }

  std::mt19937 random;
  WantedHoldings wanted;
  std::string file = kHeader;
};

TEST(HoldingBalancesTest, FindsWhatReadingRowByRowFinds) {
  int found = 0;
  int missing = 0;
  for (unsigned seed = 1; seed <= 3000; ++seed) {
    const RandomCase random(seed);
    HoldingFile file(random.file);
    std::vector<std::string> texts;
    for (const HoldingBalance& balance : FindBalances(file, random.wanted)) {
      texts.emplace_back(balance.value_or("missing"));
      ++(balance ? found : missing);
    }
    ASSERT_EQ(texts, ReadRowByRow(random.file, random.wanted)) << "seed " << seed;
  }
  // The cases are worth something only while both outcomes are common.
  EXPECT_GT(std::min(found, missing), 10000);
}

TEST(HoldingFileTest, TheSubjectStandsInTheFirstLineAndHoldingsInLineNine) {
  const std::pair<const char*, const char*> subjects[] = {{"DP 1 Report for A B:C : D", "A B:C"},
                                                          {"Report for \r\n", ""},
                                                          {" : Report for A\n : B", "A\n"}};
  for (const auto& [report, subject] : subjects) {
    EXPECT_EQ(HoldingFile(report).Subject(), subject);
  }
  EXPECT_FALSE(HoldingFile("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8").NextHolding());
}

}  // namespace
}  // namespace tallyrun::testing
