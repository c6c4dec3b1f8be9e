// The one-pass search against the plain reading of every line for every pair.
#include <algorithm>
#include <deque>
#include <gmock/gmock.h>
#include <random>

#include "holding/HoldingSearch.h"

namespace tallyrun {
namespace {

using Lines = std::vector<std::optional<std::string_view>>;

constexpr char kHeader[] = "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n";

Lines ReadRowByRow(const HoldingFile& file, const HoldingQuery& query) {
  Lines lines;
  for (const auto& pair : query.pairs) {
    std::optional<std::string_view> first;
    file.ForEachHolding([&](std::string_view line) {
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
class RandomCase {
 public:
  explicit RandomCase(unsigned seed) : random_(seed) {}

  HoldingQuery Query() {
    HoldingQuery query;
    query.boIds = DistinctTexts();
    query.isins = DistinctTexts();
    for (std::uint32_t boId = 0; boId < query.boIds.size(); ++boId) {
      for (std::uint32_t isin = 0; isin < query.isins.size(); ++isin) {
        for (std::size_t times = Below(3); times > 0; --times) query.pairs.push_back({boId, isin});
      }
    }
    std::shuffle(query.pairs.begin(), query.pairs.end(), random_);
    return query;
  }

  std::string File(const HoldingQuery& query) {
    std::string text = kHeader;
    for (std::size_t line = 0, count = Below(12); line < count; ++line) {
      if (line > 0) text += "\r\n";
      for (std::size_t piece = 0, pieces = Below(6); piece < pieces; ++piece) {
        switch (Below(3)) {
          case 0:
            text += Text(6);
            break;
          case 1:
            text += query.boIds[Below(query.boIds.size())];
            break;
          default:
            text += query.isins[Below(query.isins.size())];
            break;
        }
        if (Below(3) == 0) text += ' ';
      }
    }
    return text;
  }

 private:
  std::size_t Below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }

  std::string Text(std::size_t longest) {
    static constexpr std::string_view kAlphabet = "ab\r\n";
    std::string text;
    for (std::size_t left = Below(longest + 1); left > 0; --left) {
      text += kAlphabet[Below(10) == 0 ? Below(4) : Below(2)];
    }
    return text;
  }

  std::vector<std::string_view> DistinctTexts() {
    std::vector<std::string_view> texts;
    for (std::size_t left = 1 + Below(8); left > 0; --left) {
      texts.push_back(kept_.emplace_back(Text(Below(14))));
    }
    std::sort(texts.begin(), texts.end());
    texts.erase(std::unique(texts.begin(), texts.end()), texts.end());
    std::shuffle(texts.begin(), texts.end(), random_);
    return texts;
  }

  std::mt19937 random_;
  std::deque<std::string> kept_;  // what the query's texts are views of
};

TEST(HoldingSearchTest, FindsWhatReadingRowByRowFinds) {
  std::size_t found = 0;
  std::size_t missing = 0;
  for (unsigned seed = 1; seed <= 3000; ++seed) {
    RandomCase random(seed);
    const HoldingQuery query = random.Query();
    const HoldingFile file(random.File(query));
    const Lines expected = ReadRowByRow(file, query);
    const Lines lines = FindHoldings(file, query);
    ASSERT_EQ(lines.size(), expected.size()) << "seed " << seed;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      // The line itself, not one that reads the same.
      ASSERT_EQ(lines[i].has_value(), expected[i].has_value()) << "seed " << seed;
      if (lines[i]) {
        ASSERT_EQ(lines[i]->data(), expected[i]->data()) << "seed " << seed;
        ASSERT_EQ(lines[i]->size(), expected[i]->size()) << "seed " << seed;
      }
      ++(lines[i] ? found : missing);
    }
  }
  // The cases are worth something only while both outcomes are common.
  EXPECT_GT(found, 10000u);
  EXPECT_GT(missing, 10000u);
}

TEST(HoldingSearchTest, ManyPairsInOneEndlessLineAreNoProblem) {
  constexpr std::uint32_t kCount = 20000;
  HoldingQuery query;
  std::string line;
  std::deque<std::string> texts;
  for (std::uint32_t i = 0; i < kCount; ++i) {
    query.boIds.push_back(texts.emplace_back(std::to_string(1201000000000000 + i)));
    query.isins.push_back(texts.emplace_back("XX" + std::to_string(1000000000 + i)));
    query.pairs.push_back({i, kCount - 1 - i});
    line += texts[texts.size() - 2] + " " + texts.back() + "\n";
  }
  query.isins.push_back("XX9999999999");
  query.pairs.push_back({0, kCount});
  const HoldingFile file(kHeader + line);
  const Lines lines = FindHoldings(file, query);
  EXPECT_TRUE(std::all_of(lines.begin(), lines.end() - 1, [&](const auto& found) {
    return found && found->size() == line.size();
  }));
  EXPECT_FALSE(lines.back());
}

}  // namespace
}  // namespace tallyrun
