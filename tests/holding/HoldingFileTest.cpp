#include <gmock/gmock.h>
#include <vector>

#include "core/RuntimeError.h"
#include "holding/HoldingFile.h"

namespace tallyrun {
namespace {

using ::testing::ElementsAre;

TEST(HoldingFileTest, TheSubjectStandsInTheFirstLine) {
  const struct {
    const char* text;
    const char* subject;
  } cases[] = {
      {"Report for Holdings : 05-Jan-2010\r\nmore", "Holdings"},
      {"DP 1 Report for A B:C : D : E", "A B:C"},
      {"Report for no end", "no end"},
      {"Report for \r\n", ""},
      {"Report for A Report for B :", "A Report for B"},
      {" : Report for A\n : B", "A\n"},
  };
  for (const auto& each : cases) EXPECT_EQ(HoldingFile(each.text).Subject(), each.subject);

  for (const char* text : {"", "report for A :", "Header\r\nReport for A :"}) {
    EXPECT_THROW(HoldingFile(text).Subject(), RuntimeError) << text;
  }
}

TEST(HoldingFileTest, HoldingsBeginInLineNine) {
  const auto holdingsOf = [](const std::string& text) {
    std::vector<std::string> lines;
    HoldingFile(text).ForEachHolding([&](std::string_view line) {
      lines.emplace_back(line);
      return true;
    });
    return lines;
  };
  EXPECT_THAT(holdingsOf("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8"), ElementsAre());
  EXPECT_THAT(holdingsOf("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n"), ElementsAre(""));
  EXPECT_THAT(holdingsOf("\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\na\nb\r\n\r\nc\r"),
              ElementsAre("a\nb", "", "c\r"));
  EXPECT_THAT(holdingsOf("1\n2\n3\n4\n5\n6\n7\n8\n9\n10"), ElementsAre());
}

TEST(HoldingFileTest, TheBalanceIsTheLastField) {
  EXPECT_EQ(HoldingFile::BalanceOf("120 XX1 500"), "500");
  EXPECT_EQ(HoldingFile::BalanceOf("120 XX1 500 "), "");
  EXPECT_EQ(HoldingFile::BalanceOf("120\tXX1"), "120\tXX1");
}

}  // namespace
}  // namespace tallyrun
