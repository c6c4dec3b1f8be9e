#include <algorithm>
#include <gmock/gmock.h>

#include "core/Conversion.h"
#include "core/RecordList.h"
#include "core/RuntimeError.h"

namespace tallyrun {
namespace {

using ::testing::ElementsAre;

RecordList ListOf(std::string text, int fields = 4) {
  RecordList list;
  RecordList::Read(list, std::move(text), fields, false);
  return list;
}

std::vector<std::string> Record(const RecordList& list, int record) {
  std::vector<std::string> fields;
  for (int field = 1; field <= list.FieldCount(record); ++field) {
    fields.emplace_back(list.Field(record, field));
  }
  return fields;
}

TEST(RecordListTest, EveryLineIsARecordTheHeaderIncluded) {
  const RecordList list = ListOf("S/N~ID~Name~Code\r\n1~a~~d\r\nalone\r\n2~b~c~d~more\r\n");
  ASSERT_EQ(list.Count(), 5);
  EXPECT_THAT(Record(list, 1), ElementsAre("S/N", "ID", "Name", "Code"));
  EXPECT_THAT(Record(list, 2), ElementsAre("1", "a", "", "d"));
  EXPECT_THAT(Record(list, 3), ElementsAre("alone"));
  EXPECT_THAT(Record(list, 4), ElementsAre("2", "b", "c", "d"));
  EXPECT_THAT(Record(list, 5), ElementsAre(""));
  EXPECT_THROW(list.Field(3, 2), RuntimeError);
  EXPECT_THROW(list.Field(6, 1), RuntimeError);
  EXPECT_THROW(list.Field(0, 1), RuntimeError);
}

TEST(RecordListTest, ShortLineEndsTheReadAndTheRecordsBeforeItStay) {
  RecordList list = ListOf("old~old~old~old");
  EXPECT_THROW(RecordList::Read(list, "1~a~b~c\r\n2~a~b\r\n3~a~b~c", 4, true), RuntimeError);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_THAT(Record(list, 1), ElementsAre("1", "a", "b", "c"));
  EXPECT_EQ(list.FindEqual(2, "a"), 1);
}

TEST(RecordListTest, RepairTakesCarriageReturnsOutOfTheLastFieldAlone) {
  RecordList list;
  RecordList::Read(list, "1~a~b~c\r\r\n2~a~b\r~c\r\r", 4, true);
  EXPECT_THAT(Record(list, 1), ElementsAre("1", "a", "b", "c\r"));
  EXPECT_THAT(Record(list, 2), ElementsAre("2", "a", "b\r", "c"));
  for (const char* text : {"", "1~a~b~c\r\n", "alone"}) {
    EXPECT_THROW(RecordList::Read(list, text, 4, true), RuntimeError) << text;
  }
  EXPECT_THAT(Record(list, 1), ElementsAre("alone"));
}

TEST(RecordListTest, EqualityIsExactAndTheFirstRecordWins) {
  const RecordList list = ListOf("S/N~ID~Name~Code\r\n1~A~x~c\r\n2~a~x~\r\nshort\r\n3~A~y~c\r");
  EXPECT_EQ(list.FindEqual(2, "A"), 2);
  EXPECT_EQ(list.FindEqual(2, "a"), 3);
  EXPECT_EQ(list.FindEqual(2, "ID"), 1);
  EXPECT_EQ(list.FindEqual(4, "c\r"), 5);
  EXPECT_EQ(list.FindEqual(4, ""), 3);
  EXPECT_EQ(list.FindEqual(2, ""), 0);
  EXPECT_EQ(list.FindEqual(2, "short"), 0);
  EXPECT_EQ(list.FindEqual(5, "c"), 0);
  EXPECT_EQ(RecordList().FindEqual(2, "A"), 0);
}

TEST(RecordListTest, EqualityCanPassOverCarriageReturns) {
  const RecordList list = ListOf("1~a~b~\rc\r1\r\n2~a~b~c1\r\n3~a~b~\r");
  EXPECT_EQ(list.FindEqualWithoutCr(4, "c1"), 1);
  EXPECT_EQ(list.FindEqualWithoutCr(4, ""), 3);
  EXPECT_EQ(list.FindEqualWithoutCr(4, "c1\r"), 0);
  EXPECT_EQ(list.FindEqual(4, "c1"), 2);
}

TEST(RecordListTest, ContainingIgnoresCaseAndStaysWithinOneField) {
  const RecordList list = ListOf(
      "S/N~ISIN "
      "Code~Name~Scrip\r\n1~KTX001~n~ABCABC\r\nshort\r\n2~ktx002~n~\xC9TAT\r\n3~KTX0022~n~ab");
  EXPECT_EQ(list.FindContaining(2, "ktx00"), 2);
  EXPECT_EQ(list.FindContaining(2, "KTX002"), 4);
  EXPECT_EQ(list.FindContaining(2, "X0022"), 5);
  EXPECT_EQ(list.FindContaining(2, "X0022"), 5);
  EXPECT_EQ(list.FindContaining(2, "n c"), 1);
  EXPECT_EQ(list.FindContaining(2, ""), 1);
  EXPECT_EQ(list.FindContaining(2, "1k"), 0);
  EXPECT_EQ(list.FindContaining(2, "001ktx"), 0);
  EXPECT_EQ(list.FindContaining(2, "001~ktx"), 0);
  EXPECT_EQ(list.FindContaining(4, "\xE9t"), 4);
  EXPECT_EQ(list.FindContaining(4, "bca"), 2);
  EXPECT_EQ(list.FindContaining(9, ""), 0);
  EXPECT_EQ(RecordList().FindContaining(2, ""), 0);
}

TEST(RecordListTest, NewTextIsSearchedAnew) {
  RecordList list = ListOf("1~aaa~b~c");
  EXPECT_EQ(list.FindContaining(2, "bbb"), 0);
  EXPECT_EQ(list.FindEqual(2, "bbb"), 0);
  RecordList::Read(list, "1~bbb~b~c", 4, false);
  EXPECT_EQ(list.FindContaining(2, "BBB"), 1);
  EXPECT_EQ(list.FindEqual(2, "bbb"), 1);
}

// Every search of a list that is large beside its alphabet, against a plain walk.
TEST(RecordListTest, SearchesAgreeWithAWalkFromTheTop) {
  std::string text;
  std::uint32_t state = 1;
  const auto next = [&state](std::uint32_t below) {
    state = state * 1664525 + 1013904223;
    return (state >> 16) % below;
  };
  const auto word = [&](std::uint32_t longest) {
    std::string letters;
    for (std::uint32_t left = next(longest + 1); left > 0; --left) letters += "aBcC\r"[next(5)];
    return letters;
  };
  struct Walked {
    std::string field;
    std::string withoutCr;
    std::string folded;
  };
  std::vector<Walked> walked;
  for (int record = 0; record < 300; ++record) {
    const std::string field = word(7);
    std::string withoutCr = field;
    std::erase(withoutCr, '\r');
    walked.push_back({field, withoutCr, ToLower(field)});
    text += "1~" + field + "~x~y\r\n";
  }
  const RecordList list = ListOf(text);
  const auto firstWith = [&](const auto& matches) {
    const auto found = std::find_if(walked.begin(), walked.end(), matches);
    return found == walked.end() ? 0 : static_cast<int>(found - walked.begin()) + 1;
  };

  for (int search = 0; search < 500; ++search) {
    const std::string wanted = word(4);
    const std::string folded = ToLower(wanted);
    ASSERT_EQ(list.FindEqual(2, wanted),
              firstWith([&](const Walked& each) { return each.field == wanted; }));
    ASSERT_EQ(list.FindEqualWithoutCr(2, wanted),
              firstWith([&](const Walked& each) { return each.withoutCr == wanted; }));
    ASSERT_EQ(list.FindContaining(2, wanted), firstWith([&](const Walked& each) {
                return each.folded.find(folded) != std::string::npos;
              }));
  }
}

}  // namespace
}  // namespace tallyrun
