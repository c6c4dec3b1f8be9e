#include <gtest/gtest.h>
#include <optional>
#include <random>

#include "core/RuntimeError.h"
#include "core/masterlists/RecordIndex.h"
#include "core/masterlists/RecordList.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

// The fields of a record joined by "|".
std::string Record(const RecordList& list, int record) {
  std::string fields;
  for (int field = 1; field <= list.FieldCount(record); ++field) {
    fields += (field > 1 ? "|" : "") + std::string(list.Field(record, field));
  }
  return fields;
}

TEST(RecordListTest, EveryLineIsARecordTheHeaderIncluded) {
  RecordList list;
  list.Read("S/N~ID~Name~Code\r\n1~a~~d\r\nalone\r\n2~b~c~d~more\r\n", 4);
  ASSERT_EQ(list.Count(), 5);
  EXPECT_EQ(Record(list, 1), "S/N|ID|Name|Code");
  EXPECT_EQ(Record(list, 2), "1|a||d");
  EXPECT_EQ(Record(list, 3), "alone");
  EXPECT_EQ(Record(list, 4), "2|b|c|d");
  EXPECT_EQ(Record(list, 5), "");
  EXPECT_THROW(list.Field(3, 2), RuntimeError);
  EXPECT_THROW(list.Field(6, 1), RuntimeError);
  EXPECT_THROW(list.Field(0, 1), RuntimeError);
}

TEST(RecordListTest, AShortLineEndsTheReadAndRepairTakesCarriageReturnsOutOfTheLastField) {
  RecordList list;
  list.Read("old~old~old~old", 4);
  EXPECT_THROW(list.Read("1~a~b~c\r\n2~a~b\r\n3~a~b~c", 4), RuntimeError);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(Record(list, 1), "1|a|b|c");
  list.Read("1~a~b~c\r\r\n2~a~b\r~c\r\r", 4);
  list.RepairLast();
  EXPECT_EQ(Record(list, 1), "1|a|b|c\r");
  EXPECT_EQ(Record(list, 2), "2|a|b\r|c");
  for (const char* text : {"", "1~a~b~c\r\n", "alone"}) {
    list.Read(text, 4);
    EXPECT_THROW(list.RepairLast(), RuntimeError) << text;
  }
}

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
    text += "1~" + *fields.back() + "~x~y\r\n";
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
  EXPECT_EQ(containing.Find("a~x"), std::nullopt);
  EXPECT_EQ(ContainingIndex(list, 9).Find(""), std::nullopt);
}

}  // namespace
}  // namespace tallyrun
