// A send against a machine whose FTP client is played by the test: what the routines write,
// conclude, show and leave behind.
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"
#include "transfer/CheckAlreadySent.h"
#include "transfer/FtpTransfer.h"
#include "transfer/UploadEntryFile.h"

namespace tallyrun::testing {
namespace {

const std::string kCaption = "Tallyrun v1.0 : Pay In";
const std::string kSending = "...Sending records to KTX...Please wait.";
constexpr char kFileName[] = "05-Jan-2010_PI_123456.txt";
constexpr char kComplete[] = "226 Transfer complete.\r\n";

struct EntrySendTest : ProgramFixture {
  EntrySendTest() {
    EntryMode = kPayIn;
    grid.SetCols(2);
    FillRows(grid, {"1|a"});
    platform.onMessage = [this](const Message&) { captionOfBox = busyWindow.caption; };
  }

  // The client prints `output`, and stores `localFile` when it has any.
  void PlayClient(const std::optional<std::string>& output, std::optional<std::string> localFile) {
    platform.started.clear();
    platform.onPendingEvents = [=, this] {
      const std::string path = folder.Path();
      EXPECT_EQ(folder.Read("ftp2KTX.bat"), path.substr(0, 2) + "\r\ncd \"" + path +
                                                "\"\r\nftp -s:ftp2KTX.txt>out.txt\r\nexit");
      script = folder.Read("ftp2KTX.txt");
      if (localFile) folder.Write(kFileName, *localFile);
      if (output) folder.Write("out.txt", *output);
      FillRows(grid, {"1|edited meanwhile"});
    };
  }
  // Runs `step` for a send of one row.
  template <class Step>
  auto InSend(const std::string& cell, Step step) {
    busyWindow.SetCaption(kCaption);
    BusyScope busy(busyWindow);
    busy.Show(kSending);
    FillRows(grid, {"1|" + cell});
    return step(EntrySend(grid, Date{2010, 1, 5}, busy));
  }
  static std::string ScriptWith(const std::string& command) {
    return std::string("open ") + kExchangeAddress +
           "\r\nledgerhand\r\nqz5071\r\nprompt\r\ncd entry\r\nmkdir 05-Jan-2010\r\n"
           "cd 05-Jan-2010\r\n" +
           command + " 05-Jan-2010_PI_123456.txt\r\nbye";
  }
  bool HasTransferFiles() { return folder.Has("ftp2KTX.txt") || folder.Has("out.txt"); }

  std::string captionOfBox, script;
};

TEST_F(EntrySendTest, TheCheckStopsWhenTheFileIsThereOrNothingCouldBeFoundOut) {
  const Message alreadySent = {"File already sent. Your sent file will be shown now.",
                               kApplicationTitle, MessageIcon::Critical};
  const struct {
    std::optional<std::string> output, localFile;
    bool stops, filesLeft;
    std::vector<Message> boxes;
  } cases[] = {{"550 The System cannot find the file specified.\r\n", {}, false, false, {}},
               {kComplete, "", false, true, {}},
               {"Not connected.", {}, true, true, {{"File not found"}}},
               {{}, {}, true, true, {{"File not found"}}},
               {kComplete, "x", true, false, {alreadySent}},
               {"", "x", true, false, {alreadySent}}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.output.value_or("no output"));
    platform.messages.clear();
    for (const char* name : {kFileName, "out.txt", "ftp2KTX.txt", "ftp2KTX.bat"}) {
      folder.Remove(name);
    }
    PlayClient(each.output, each.localFile);
    EXPECT_EQ(InSend("a", CheckAlreadySent), each.stops);
    EXPECT_EQ(script, ScriptWith("get"));
    EXPECT_EQ(HasTransferFiles(), each.filesLeft);
    EXPECT_EQ(platform.messages, each.boxes);
    ExpectWindow(kCaption);
  }
  EXPECT_EQ(captionOfBox, kCaption + kSending);
  ASSERT_EQ(platform.started.size(), 2u);
  EXPECT_EQ(platform.started[1].commandLine, "notepad \"" + (folder / kFileName) + "\"");
}

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
               {"Login failed.", "b", failed, "01-Jan-11_12-00-00AM.txt"},
               {"", "c", failed, "01-Jan-11_12-00-01AM.txt"}};
  platform.now = {2010, 12, 31, 23, 59, 59, 0};
  for (const auto& each : cases) {
    const std::string sheet = std::string("~\r\n1~") + each.cell + "\r";
    PlayClient(each.output, {});
    InSend(each.cell, UploadEntryFile);
    EXPECT_EQ(script, ScriptWith("put"));
    EXPECT_EQ(platform.TakeMessage(), each.outcome);
    EXPECT_EQ(captionOfBox, kCaption + "..." + each.outcome.text);
    EXPECT_FALSE(HasTransferFiles());
    // What was sent, whatever the clerk did meanwhile.
    EXPECT_EQ(folder.Read(std::string("Sent\\05-Jan-2010_PI_123456_") + each.archive), sheet);
    ExpectWindow(kCaption);
  }
}

TEST_F(EntrySendTest, AnErrorInTheUploadLeavesCaptionAndPointerAndArchivesNothing) {
  PlayClient({}, {});
  InSend("a", UploadEntryFile);
  EXPECT_EQ(platform.TakeMessage().text, "File not found");
  EXPECT_FALSE(folder.Has("Sent"));
  ExpectWindow(kCaption + kSending, PointerShape::Hourglass);
  // What an earlier client printed can't be taken away: it must not be judged, and nothing runs.
  folder.Write("out.txt", kComplete);
  std::filesystem::permissions(folder.Native("out.txt"), std::filesystem::perms::owner_read);
  folder.Remove("ftp2KTX.bat");
  InSend("a", UploadEntryFile);
  EXPECT_EQ(platform.TakeMessage().text, "Permission denied");
  EXPECT_FALSE(folder.Has("ftp2KTX.bat"));
}

}  // namespace
}  // namespace tallyrun::testing
