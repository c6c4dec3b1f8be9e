#include <gtest/gtest.h>
#include <string>

#include "core/RuntimeError.h"
#include "holding/HoldingFile.h"

namespace tallyrun::testing {
namespace {

TEST(HoldingFileTest, TheSubjectStandsInTheFirstLine) {
  const std::pair<const char*, const char*> subjects[] = {
      {"Report for Holdings : 05-Jan-2010\r\nmore", "Holdings"},
      {"DP 1 Report for A B:C : D : E", "A B:C"},
      {"Report for \r\n", ""},
      {" : Report for A\n : B", "A\n"}};
  for (const auto& [report, subject] : subjects) {
    EXPECT_EQ(HoldingFile(report).Subject(), subject);
  }
  EXPECT_THROW(HoldingFile("Header\r\nReport for A :").Subject(), RuntimeError);
}

TEST(HoldingFileTest, HoldingsBeginInLineNine) {
  // Each line within bars.
  const std::pair<const char*, const char*> holdings[] = {
      {"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8", ""},
      {"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n", "||"},
      {"\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\na\nb\r\n\r\nc 5 \r", "|a\nb||||c 5 \r|"},
      {"1\n2\n3\n4\n5\n6\n7\n8\n9\n10", ""}};
  for (const auto& [report, lines] : holdings) {
    HoldingFile file(report);
    std::string found;
    while (const auto line = file.NextHolding()) found += "|" + std::string(*line) + "|";
    EXPECT_EQ(found, lines);
  }
}

}  // namespace
}  // namespace tallyrun::testing
