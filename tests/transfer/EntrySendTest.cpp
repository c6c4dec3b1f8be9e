// A send against a machine whose FTP client is played by the test: what the routines write,
// conclude, show and leave behind.
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"
#include "transfer/FtpTransfer.h"
#include "transfer/UploadEntryFile.h"

namespace tallyrun::testing {
namespace {

const std::string kCaption = "Tallyrun v1.0 : Pay In";
const std::string kSending = "...Sending records to KTX...Please wait.";
constexpr char kComplete[] = "226 Transfer complete.\r\n";

struct EntrySendTest : ProgramFixture {
  EntrySendTest() {
    EntryMode = kPayIn;
    grid.SetCols(2);
    platform.onMessage = [this](const Message&) { captionOfBox = busyWindow.caption; };
  }

  // The client prints `output`, while the clerk goes on.
  void PlayClient(const std::string& output) {
    platform.onPendingEvents = [=, this] {
      const std::string path = folder.Path();
      EXPECT_EQ(folder.Read("ftp2KTX.bat"), path.substr(0, 2) + "\r\ncd \"" + path +
                                                "\"\r\nftp -s:ftp2KTX.txt>out.txt\r\nexit");
      script = folder.Read("ftp2KTX.txt");
      folder.Write("out.txt", output);
      FillRows(grid, {"1|edited meanwhile"});
    };
  }
  void Upload(const std::string& cell) {
    busyWindow.SetCaption(kCaption);
    BusyScope busy(busyWindow);
    busy.Show(kSending);
    FillRows(grid, {"1|" + cell});
    UploadEntryFile(EntrySend(grid, Date{2010, 1, 5}, busy));
  }

  std::string captionOfBox, script;
};

TEST_F(EntrySendTest, TheUploadIsJudgedToldCleanedUpAndArchivedWithoutReplacingAnother) {
  const Message failed = {"Records were not sent to KTX.", "Send failed", MessageIcon::Critical};
  const struct {
    const char *output, *cell;
    Message outcome;
    const char* archive;
  } cases[] = {{kComplete,
                "a",
                {"Records sent to KTX successfully.", "Send succeeded", MessageIcon::Information},
                "31-Dec-10_11-59-59PM.txt"},
               {"Login failed.", "b", failed, "01-Jan-11_12-00-00AM.txt"}};
  platform.now = {2010, 12, 31, 23, 59, 59, 0};
  for (const auto& each : cases) {
    const std::string sheet = std::string("~\r\n1~") + each.cell + "\r";
    PlayClient(each.output);
    Upload(each.cell);
    EXPECT_EQ(script, std::string("open ") + kExchangeAddress +
                          "\r\nledgerhand\r\nqz5071\r\nprompt\r\ncd entry\r\nmkdir 05-Jan-2010\r\n"
                          "cd 05-Jan-2010\r\nput 05-Jan-2010_PI_123456.txt\r\nbye");
    EXPECT_EQ(platform.TakeMessage(), each.outcome);
    EXPECT_EQ(captionOfBox, kCaption + "..." + each.outcome.text);
    EXPECT_FALSE(folder.Has("ftp2KTX.txt") || folder.Has("out.txt"));
    // What was sent, whatever the clerk did meanwhile.
    EXPECT_EQ(folder.Read(std::string("Sent\\05-Jan-2010_PI_123456_") + each.archive), sheet);
    ExpectWindow(kCaption);
  }
}

// It must not be judged, and nothing runs.
TEST_F(EntrySendTest, WhatAnEarlierClientPrintedMustGoBeforeTheUpload) {
  folder.Write("out.txt", kComplete);
  std::filesystem::permissions(folder.Native("out.txt"), std::filesystem::perms::owner_read);
  Upload("a");
  EXPECT_EQ(platform.TakeMessage().text, "Permission denied");
  EXPECT_FALSE(folder.Has("ftp2KTX.bat") || folder.Has("Sent"));
  ExpectWindow(kCaption + kSending, PointerShape::Hourglass);
}

}  // namespace
}  // namespace tallyrun::testing
