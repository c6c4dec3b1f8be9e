#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "holding/HoldingFile.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {
namespace {

struct HoldingFileTest : ::testing::Test {
  LineBlocks Blocks(const std::string& text, std::size_t bytes = 1) {
    folder.Write("holdings.txt", text);
    return LineBlocks(folder / "holdings.txt", bytes);
  }
  TempFolder folder;
};

TEST_F(HoldingFileTest, TheSubjectStandsInTheFirstLine) {
  const std::pair<const char*, const char*> subjects[] = {
      {"Report for Holdings : 05-Jan-2010\r\nmore", "Holdings"},
      {"DP 1 Report for A B:C : D : E", "A B:C"},
      {"Report for \r\n", ""},
      {" : Report for A\n : B", "A\n"}};
  for (const auto& [text, subject] : subjects) {
    LineBlocks blocks = Blocks(text);
    EXPECT_EQ(HoldingFile(blocks).Subject(), subject);
  }
  LineBlocks blocks = Blocks("Header\r\nReport for A :");
  EXPECT_THROW(HoldingFile(blocks).Subject(), RuntimeError);
}

TEST_F(HoldingFileTest, HoldingsBeginInLineNineHoweverTheFileIsRead) {
  // Each block of lines, the last one within bars.
  const std::pair<const char*, const char*> holdings[] = {
      {"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8", ""},
      {"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n", "||"},
      {"\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\na\nb\r\n\r\nc 5 \r", "a\nb\r\n\r\n|c 5 \r|"},
      {"1\n2\n3\n4\n5\n6\n7\n8\n9\n10", ""}};
  for (const auto& [text, lines] : holdings) {
    for (std::size_t bytes = 1; bytes <= 30; ++bytes) {
      LineBlocks blocks = Blocks(text, bytes);
      HoldingFile file(blocks);
      std::string found;
      while (const auto block = file.NextHoldings()) {
        found += block->isLast ? "|" + std::string(block->text) + "|" : std::string(block->text);
      }
      EXPECT_EQ(found, lines) << bytes;
    }
  }
}

}  // namespace
}  // namespace tallyrun::testing
