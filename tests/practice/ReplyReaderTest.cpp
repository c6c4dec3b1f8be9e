#include <deque>
#include <gmock/gmock.h>

#include "practice/ftp/ReplyReader.h"

namespace tallyrun::practice {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Pieces : public Stream {
 public:
  explicit Pieces(std::deque<std::string> pieces) : pieces_(std::move(pieces)) {}
  bool Send(std::string_view) override { return false; }
  std::string Receive() override {
    if (pieces_.empty()) return {};
    std::string piece = pieces_.front();
    pieces_.pop_front();
    return piece;
  }

 private:
  std::deque<std::string> pieces_;
};

TEST(ReplyReaderTest, FindsRepliesInWhateverPiecesTheyArrive) {
  Pieces stream({"22", "0 Ready.\r", "\n331 Name\r\n230 In", ".\n"});
  ReplyReader reader(stream);
  EXPECT_EQ(reader.Read().code, 220);
  EXPECT_THAT(reader.Read().lines, ElementsAre("331 Name"));
  EXPECT_THAT(reader.Read().lines, ElementsAre("230 In."));
  EXPECT_EQ(reader.Read().code, 0);
}

TEST(ReplyReaderTest, EndsAMultiLineReplyWithItsOwnCodeAlone) {
  Pieces stream(
      {"220-Welcome\r\n226 Transfer complete.\r\n220-more\r\n text\r\n220 Ready\r\n257 x\r\n"});
  ReplyReader reader(stream);
  const Reply greeting = reader.Read();
  EXPECT_EQ(greeting.code, 220);
  EXPECT_EQ(greeting.lines.size(), 5u);
  EXPECT_EQ(reader.Read().code, 257);
}

TEST(ReplyReaderTest, HasNoCodeForAReplyCutShort) {
  Pieces stream({"220-Welcome\r\n220 Rea"});
  ReplyReader reader(stream);
  const Reply cut = reader.Read();
  EXPECT_EQ(cut.code, 0);
  EXPECT_THAT(cut.lines, ElementsAre("220-Welcome"));
  EXPECT_THAT(reader.Read().lines, IsEmpty());
}

TEST(ReplyReaderTest, ReadsThePortOfAPassiveReply) {
  struct Case {
    int code;
    const char* line;
    std::optional<int> port;
  };
  const Case cases[] = {
      {227, "227 Entering Passive Mode (127,0,0,1,165,77).", 42317},
      {227, "227 =10,0,0,9,0,21", 21},
      {227, "227 Entering Passive Mode (127,0,0,1,165).", std::nullopt},
      {227, "227 Entering Passive Mode (127,0,0,1,256,77).", std::nullopt},
      {227, "227 Entering Passive Mode (127,0,0,1,0,0).", std::nullopt},
      {227, "227", std::nullopt},
      {425, "425 No (127,0,0,1,165,77).", std::nullopt},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(PassivePort(Reply{c.code, {c.line}}), c.port) << c.line;
  }
}

}  // namespace
}  // namespace tallyrun::practice
