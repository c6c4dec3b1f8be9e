#include <gtest/gtest.h>
#include <optional>
#include <random>

#include "core/masterlists/RecordIndex.h"
#include "core/masterlists/RecordList.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

// Both indexes of a list that is large beside its alphabet, against a plain walk. Some records have
// no such field.
TEST(RecordListTest, SearchesAgreeWithAWalkFromTheTop) {
  std::mt19937 random(1);
  const auto word = [&](std::size_t longest) {
    std::string letters;
    for (std::size_t left = random() % (longest + 1); left > 0; --left) {
      letters += "aBcC\r"[random() % 5];
    }
    return letters;
  };
  std::vector<std::optional<std::string>> fields;
  std::string text;
  for (int record = 0; record < 300; ++record) {
    fields.push_back(word(11));
    text += "1~" + *fields.back() + "~x~y~more~\r\n";
    if (random() % 8 != 0) continue;
    fields.push_back(std::nullopt);
    text += "aa\r\n";
  }
  RecordList list;
  list.Read(text, 4);
  const EqualityIndex equal(list, 2, CarriageReturns::Kept);
  const EqualityIndex equalWithoutCr(list, 2, CarriageReturns::TakenOut);
  const ContainingIndex containing(list, 2);
  const auto firstWith = [&](const auto& matches) -> std::optional<int> {
    for (std::size_t at = 0; at < fields.size(); ++at) {
      if (fields[at] && matches(*fields[at])) return static_cast<int>(at) + 1;
    }
    return std::nullopt;
  };
  for (int search = 0; search < 1000; ++search) {
    const std::string wanted = search % 3 == 0 ? fields[random() % 300].value_or("~") : word(4);
    ASSERT_EQ(equal.Find(wanted),
              firstWith([&](const std::string& field) { return field == wanted; }));
    ASSERT_EQ(equalWithoutCr.Find(wanted), firstWith([&](std::string field) {
                std::erase(field, '\r');
                return field == wanted;
              }));
    ASSERT_EQ(containing.Find(wanted), firstWith([&](const std::string& field) {
                return ToLower(field).find(ToLower(wanted)) != std::string::npos;
              }));
  }
  EXPECT_EQ(list.Count(), static_cast<int>(fields.size()) + 1);
}

}  // namespace
}  // namespace tallyrun
