#include <gtest/gtest.h>
#include <random>
#include <string>

#include "core/LineBlocks.h"
#include "core/RuntimeError.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {
namespace {

TEST(LineBlocksTest, GivesTheWholeFileInWholeLines) {
  const TempFolder folder;
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::string text;
    for (auto left = random() % 40; left > 0; --left) {
      text += std::string(random() % 30, 'x');
      text += std::string_view("\r\n\r\n\n\r").substr(0, random() % 7);
    }
    folder.Write("lines.txt", text);
    LineBlocks blocks(folder / "lines.txt", 1 + random() % 50);
    std::string read;
    LineBlock block;
    do {
      block = blocks.Next();
      EXPECT_EQ(block.text.ends_with("\r\n"), !block.isLast);
      read += block.text;
    } while (!block.isLast);
    EXPECT_EQ(block.text.find("\r\n"), std::string_view::npos);
    EXPECT_EQ(read, text);
  }
  EXPECT_THROW(LineBlocks(folder / "none.txt"), RuntimeError);
}

}  // namespace
}  // namespace tallyrun::testing
