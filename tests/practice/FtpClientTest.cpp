#include <algorithm>
#include <gmock/gmock.h>
#include <sstream>

#include "practice/ftp/FtpClient.h"
#include "tests/practice/ScriptedNetwork.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class FtpClientTest : public ::testing::Test {
 protected:
  FtpClientTest() {
    network.replies = {
        {"USER ledgerhand", "331 Password required.\r\n"},
        {"PASS qz5071", "230 User logged in.\r\n"},
        {"CWD entry", "250 CWD command successful.\r\n"},
        {"PASV", "227 Entering Passive Mode (127,0,0,1,4,1).\r\n"},
        {"STOR day.txt", "150 Opening.\r\n226 Transfer complete.\r\n"},
        {"RETR day.txt", "150 Opening.\r\n226 Transfer complete.\r\n"},
        {"QUIT", "221 Goodbye.\r\n"},
    };
  }

  // What the client writes for a script that logs in first.
  std::string Run(const std::string& commands) {
    std::istringstream script("open 127.0.0.1 2121\r\nledgerhand\r\nqz5071\r\n" + commands);
    std::ostringstream output;
    practice::FtpClient(network, output).Run(script);
    return output.str();
  }

  // With slashes, which both systems take.
  std::string Local(std::string_view name) const {
    std::string path = folder / name;
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
  }

  TempFolder folder;
  ScriptedNetwork network;
};

TEST_F(FtpClientTest, WritesASessionAsTheSystemsClientDoes) {
  folder.Write("day.txt", "S/N~Broker ID\r");
  EXPECT_EQ(Run("prompt\r\ncd entry\r\nput " + Local("day.txt") + "\r\nbye"),
            "ftp> open 127.0.0.1 2121\n"
            "Connected to 127.0.0.1.\n"
            "220 Ready.\n"
            "User (127.0.0.1:(none)): \n"
            "331 Password required.\n"
            "Password: \n"
            "230 User logged in.\n"
            "ftp> prompt\n"
            "Interactive mode Off .\n"
            "ftp> cd entry\n"
            "250 CWD command successful.\n"
            "ftp> put " +
                Local("day.txt") +
                "\n"
                "227 Entering Passive Mode (127,0,0,1,4,1).\n"
                "150 Opening.\n"
                "226 Transfer complete.\n"
                "ftp: 14 bytes sent.\n"
                "ftp> bye\n"
                "221 Goodbye.\n");
  EXPECT_EQ(network.uploaded, "S/N~Broker ID\r");
}

TEST_F(FtpClientTest, WithoutAServerTheAccountIsReadAsCommands) {
  network.connectFails = true;
  EXPECT_EQ(Run("prompt\r\ncd entry\r\nget day.txt\r\nbye"),
            "ftp> open 127.0.0.1 2121\n"
            "> ftp: connect :Connection refused\n"
            "ftp> ledgerhand\n"
            "Invalid command.\n"
            "ftp> qz5071\n"
            "Invalid command.\n"
            "ftp> prompt\n"
            "Interactive mode Off .\n"
            "ftp> cd entry\n"
            "Not connected.\n"
            "ftp> get day.txt\n"
            "Not connected.\n"
            "ftp> bye\n");
}

TEST_F(FtpClientTest, ARefusedGetLeavesTheLocalFileAlone) {
  folder.Write("day.txt", "mine");
  network.replies["RETR day.txt"] = "550 The system cannot find the file specified.\r\n";
  EXPECT_THAT(Run("get day.txt " + Local("day.txt") + "\r\nget day.txt " + Local("other.txt")),
              HasSubstr("550 The system cannot find the file specified.\n"));
  EXPECT_EQ(folder.Read("day.txt"), "mine");
  EXPECT_FALSE(folder.Has("other.txt"));
}

TEST_F(FtpClientTest, AGetKeepsWhatCameBeforeTheServerHungUp) {
  folder.Write("day.txt", "an older and longer text");
  network.download = "half a f";
  network.replies["RETR day.txt"] = "150 Opening.\r\n";
  network.replies.erase("QUIT");
  EXPECT_THAT(Run("get day.txt " + Local("day.txt") + "\r\ncd entry\r\nbye"),
              HasSubstr("150 Opening.\nConnection closed by remote host.\n"
                        "ftp> cd entry\nNot connected.\nftp> bye\n"));
  EXPECT_EQ(folder.Read("day.txt"), "half a f");
}

TEST_F(FtpClientTest, AGetThatCannotBeWrittenClaimsNoTransfer) {
  network.download = "text";
  const std::string output = Run("get day.txt " + Local("missing/day.txt") + "\r\ncd entry");
  EXPECT_THAT(output, HasSubstr("Error opening local file "));
  EXPECT_THAT(output, Not(HasSubstr("226")));
  EXPECT_THAT(output, HasSubstr("ftp> cd entry\n250 CWD command successful.\n"));
}

}  // namespace
}  // namespace tallyrun::testing
