#include <gtest/gtest.h>

#include "transfer/FtpScript.h"

namespace tallyrun {
namespace {

TEST(FtpScriptTest, ScriptsAndBatchAreAsTheExchangeAndTheInterpreterKnowThem) {
  const std::string connection = std::string("open ") + kExchangeAddress +
                                 "\r\nledgerhand\r\nqz5071\r\nprompt\r\ncd entry\r\n";
  EXPECT_EQ(SendScript("05-Jan-2010", "a.txt"),
            connection + "mkdir 05-Jan-2010\r\ncd 05-Jan-2010\r\nput a.txt\r\nbye");
  EXPECT_EQ(AlreadySentScript("05-Jan-2010", "a.txt"),
            connection + "mkdir 05-Jan-2010\r\ncd 05-Jan-2010\r\nget a.txt\r\nbye");
  EXPECT_EQ(BatchText("D:\\Day books\\"),
            "D:\r\ncd \"D:\\Day books\\\"\r\nftp -s:ftp2KTX.txt>out.txt\r\nexit");
  for (const char* output : {"", "226 transfer complete.", "226 Transfer complete"}) {
    EXPECT_FALSE(HasTransferCompleted(output)) << output;
  }
  EXPECT_TRUE(HasTransferCompleted("530 No.\r\n226 Transfer complete.\r\nftp: 10 bytes sent"));
}

}  // namespace
}  // namespace tallyrun
