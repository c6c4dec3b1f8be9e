#include <gtest/gtest.h>

#include "transfer/FtpScript.h"

namespace tallyrun {
namespace {

TEST(FtpScriptTest, ScriptsAreAsTheExchangeKnowsThem) {
  const std::string connection = std::string("open ") + kExchangeAddress +
                                 "\r\nledgerhand\r\nqz5071\r\nprompt\r\ncd entry\r\n";
  EXPECT_EQ(
      SendScript("05-Jan-2010", "05-Jan-2010_PI_123456.txt"),
      connection + "mkdir 05-Jan-2010\r\ncd 05-Jan-2010\r\nput 05-Jan-2010_PI_123456.txt\r\nbye");
  EXPECT_EQ(
      AlreadySentScript("05-Jan-2010", "05-Jan-2010_PO_123456.txt"),
      connection + "mkdir 05-Jan-2010\r\ncd 05-Jan-2010\r\nget 05-Jan-2010_PO_123456.txt\r\nbye");
  EXPECT_EQ(FtpScript({"get ISIN.txt"}), connection + "get ISIN.txt\r\nbye");
}

TEST(FtpScriptTest, TheBatchChangesDriveAndFolderFirst) {
  EXPECT_EQ(BatchText("D:\\Day books\\"),
            "D:\r\ncd \"D:\\Day books\\\"\r\nftp -s:ftp2KTX.txt>out.txt\r\nexit");
}

TEST(FtpScriptTest, OnlyTheServersOwnWordsMeanSuccess) {
  const struct {
    const char* output;
    bool completed;
  } cases[] = {
      {"", false},
      {"150 Opening.\r\n226 Transfer complete.\r\nftp: 10 bytes sent", true},
      {"530 Login incorrect.\r\n226 Transfer complete.", true},
      {"226 transfer complete.", false},
      {"226 Transfer complete", false},
      {"426 Connection closed; transfer aborted.", false},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(HasTransferCompleted(each.output), each.completed) << each.output;
  }
}

}  // namespace
}  // namespace tallyrun
