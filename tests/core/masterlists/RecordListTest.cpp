#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "core/RuntimeError.h"
#include "core/masterlists/RecordList.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

RecordList ListOf(std::string text) {
  RecordList list;
  RecordList::Read(list, std::move(text), 4, false);
  return list;
}

// The fields of a record joined by "|".
std::string Record(const RecordList& list, int record) {
  std::string fields;
  for (int field = 1; field <= list.FieldCount(record); ++field) {
    fields += (field > 1 ? "|" : "") + std::string(list.Field(record, field));
  }
  return fields;
}

TEST(RecordListTest, EveryLineIsARecordTheHeaderIncluded) {
  const RecordList list = ListOf("S/N~ID~Name~Code\r\n1~a~~d\r\nalone\r\n2~b~c~d~more\r\n");
  ASSERT_EQ(list.Count(), 5);
  EXPECT_EQ(Record(list, 1), "S/N|ID|Name|Code");
  EXPECT_EQ(Record(list, 2), "1|a||d");
  EXPECT_EQ(Record(list, 4), "2|b|c|d");
  EXPECT_EQ(Record(list, 5), "");
  EXPECT_EQ(list.FindEqual(2, "alone"), 0);
  EXPECT_EQ(list.FindContaining(2, "a~"), 0);
  EXPECT_EQ(list.FindContaining(9, ""), 0);
  EXPECT_EQ(RecordList().FindContaining(2, ""), 0);
  EXPECT_THROW(list.Field(3, 2), RuntimeError);
  EXPECT_THROW(list.Field(6, 1), RuntimeError);
  EXPECT_THROW(list.Field(0, 1), RuntimeError);
}

TEST(RecordListTest, AShortLineEndsTheReadAndRepairTakesCarriageReturnsOutOfTheLastField) {
  RecordList list = ListOf("old~old~old~old");
  EXPECT_THROW(RecordList::Read(list, "1~a~b~c\r\n2~a~b\r\n3~a~b~c", 4, true), RuntimeError);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list.FindEqual(2, "a"), 1);
  EXPECT_EQ(list.FindEqual(2, "old"), 0);
  RecordList::Read(list, "1~a~b~c\r\r\n2~a~b\r~c\r\r", 4, true);
  EXPECT_EQ(Record(list, 1), "1|a|b|c\r");
  EXPECT_EQ(Record(list, 2), "2|a|b\r|c");
  for (const char* text : {"", "1~a~b~c\r\n", "alone"}) {
    EXPECT_THROW(RecordList::Read(list, text, 4, true), RuntimeError) << text;
  }
  EXPECT_EQ(Record(list, 1), "alone");
}

// Every search of a list that is large beside its alphabet, against a plain walk.
TEST(RecordListTest, SearchesAgreeWithAWalkFromTheTop) {
  std::mt19937 random(1);
  const auto word = [&](std::size_t longest) {
    std::string letters;
    for (std::size_t left = random() % (longest + 1); left > 0; --left) {
      letters += "aBcC\r"[random() % 5];
    }
    return letters;
  };
  std::vector<std::string> fields;
  std::string text;
  for (int record = 0; record < 300; ++record) {
    fields.push_back(word(7));
    text += "1~" + fields.back() + "~x~y\r\n";
  }
  const RecordList list = ListOf(text);
  const auto firstWith = [&](const auto& matches) {
    const auto found = std::find_if(fields.begin(), fields.end(), matches);
    return found == fields.end() ? 0 : static_cast<int>(found - fields.begin()) + 1;
  };
  for (int search = 0; search < 500; ++search) {
    const std::string wanted = word(4);
    ASSERT_EQ(list.FindEqual(2, wanted),
              firstWith([&](const std::string& field) { return field == wanted; }));
    ASSERT_EQ(list.FindEqualWithoutCr(2, wanted), firstWith([&](std::string field) {
                std::erase(field, '\r');
                return field == wanted;
              }));
    ASSERT_EQ(list.FindContaining(2, wanted), firstWith([&](const std::string& field) {
                return ToLower(field).find(ToLower(wanted)) != std::string::npos;
              }));
  }
}

}  // namespace
}  // namespace tallyrun
