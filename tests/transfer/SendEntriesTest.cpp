// A send against a machine whose FTP client is played by the test: what the routines write,
// conclude, show and leave behind.
#include <gmock/gmock.h>

#include "core/EntryRow.h"
#include "core/Settings.h"
#include "tests/support/FakeBusyWindow.h"
#include "tests/support/GridText.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"
#include "transfer/FtpScript.h"
#include "transfer/SendEntries.h"

namespace tallyrun {
namespace {

using testing::FakeBusyWindow;
using testing::FillRows;
using testing::RecordingPlatform;
using testing::TempFolder;

constexpr char kCaption[] = "Tallyrun v1.0 : Pay In";
constexpr char kBusyCaption[] = "Tallyrun v1.0 : Pay In...Sending records to KTX...Please wait.";
constexpr char kFileName[] = "05-Jan-2010_PI_123456.txt";
constexpr char kNotThere[] = "550 The System cannot find the file specified.\r\n";
constexpr char kComplete[] = "226 Transfer complete.\r\n";
const Message kFileNotFound = {"File not found"};

class SendEntriesTest : public ::testing::Test {
 protected:
  SendEntriesTest() {
    Settings.brokerId = "123456";
    Settings.backupLocation = folder.Path();
    EntryMode = kPayIn;
    grid.SetCols(2);
    FillRows(grid, {"1|a"});
    platform.onMessage = [this](const Message&) {
      captionsOfBoxes.push_back(window.caption);
      EXPECT_EQ(window.pointer, expectedPointer);
    };
  }
  ~SendEntriesTest() override {
    EntryMode = {};
    Settings = {};
  }

  // The client prints `output`; `effect` is what it does to the working folder.
  void PlayClient(
      std::optional<std::string> output, std::function<void()> effect = [] {}) {
    platform.onStart = [=, this](const std::string& commandLine,
                                 WindowMode mode) -> std::unique_ptr<Process> {
      if (commandLine.starts_with("notepad")) return nullptr;
      EXPECT_EQ(commandLine, "\"" + (folder / "ftp2KTX.bat") + "\"");
      EXPECT_EQ(mode, WindowMode::Hidden);
      EXPECT_EQ(folder.Read("ftp2KTX.bat"), BatchText(folder.Path()));
      script = folder.Read("ftp2KTX.txt");
      effect();
      if (output) folder.Write("out.txt", *output);
      struct Ended : Process {
        std::optional<unsigned long> ExitCode() override { return 0; }
      };
      return std::make_unique<Ended>();
    };
  }

  EntrySend NewSend() {
    window.caption = kBusyCaption;
    window.pointer = PointerShape::Hourglass;
    return EntrySend(grid, Date{2010, 1, 5}, window, savedCaption);
  }

  void ExpectAtRest() {
    EXPECT_EQ(window.caption, kCaption);
    EXPECT_EQ(window.pointer, PointerShape::Normal);
  }
  void ExpectBusy() {
    EXPECT_EQ(window.caption, kBusyCaption);
    EXPECT_EQ(window.pointer, PointerShape::Hourglass);
  }
  bool HasTransferFiles() {
    return folder.Has("ftp2KTX.txt") || folder.Has("ftp2KTX.bat") || folder.Has("out.txt");
  }

  TempFolder folder;
  RecordingPlatform platform;
  FlexGrid grid;
  FakeBusyWindow window;
  std::string savedCaption = kCaption;
  PointerShape expectedPointer = PointerShape::Normal;
  std::vector<std::string> captionsOfBoxes;
  std::string script;
};

TEST_F(SendEntriesTest, TheQuestionNamesModeAndDay) {
  platform.answers = {MessageAnswer::Yes};
  EXPECT_TRUE(ConfirmSend({2010, 1, 5}));
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"Are you sure to send the entered records to KTX as Pay In file of "
                     "05-Jan-2010 ?",
                     "Pay In of 05-Jan-2010 Send Confirmation", MessageIcon::Question,
                     MessageButtons::YesNo}));
  EXPECT_FALSE(ConfirmSend({2010, 1, 5}));
}

TEST_F(SendEntriesTest, AFileThatTheServerCannotFindMayBeSent) {
  PlayClient(kNotThere);
  EXPECT_FALSE(CheckAlreadySent(NewSend()));
  EXPECT_EQ(script, AlreadySentScript("05-Jan-2010", kFileName));
  EXPECT_FALSE(HasTransferFiles());
  EXPECT_TRUE(platform.messages.empty());
  ExpectBusy();
}

TEST_F(SendEntriesTest, AnyOtherReplyWithALocalFileMeansAlreadySent) {
  for (const char* output : {kComplete, "Not connected.\r\n", ""}) {
    SCOPED_TRACE(output);
    platform.started.clear();
    captionsOfBoxes.clear();
    PlayClient(output, [this] { folder.Write(kFileName, "the server's copy"); });
    EXPECT_TRUE(CheckAlreadySent(NewSend()));
    EXPECT_EQ(platform.TakeMessage(),
              (Message{"File already sent. Your sent file will be shown now.", "Tallyrun",
                       MessageIcon::Critical, MessageButtons::Ok}));
    EXPECT_THAT(captionsOfBoxes, ::testing::ElementsAre(kBusyCaption));
    ASSERT_EQ(platform.started.size(), 2u);
    EXPECT_EQ(platform.started[1].commandLine, "notepad \"" + (folder / kFileName) + "\"");
    EXPECT_EQ(platform.started[1].mode, WindowMode::NormalFocus);
    EXPECT_FALSE(HasTransferFiles());
    EXPECT_EQ(folder.Read(kFileName), "the server's copy");
    ExpectAtRest();
  }
}

TEST_F(SendEntriesTest, AnEmptyLocalFileGoesOnAndLeavesTheTransferFiles) {
  PlayClient(kComplete, [this] { folder.Write(kFileName, ""); });
  EXPECT_FALSE(CheckAlreadySent(NewSend()));
  EXPECT_TRUE(HasTransferFiles());
  EXPECT_TRUE(platform.messages.empty());
  ExpectBusy();
}

TEST_F(SendEntriesTest, WithoutALocalFileOrAnyOutputTheCheckFailsAndStops) {
  for (const auto& output :
       {std::optional<std::string>("Not connected."), std::optional<std::string>()}) {
    PlayClient(output);
    EXPECT_TRUE(CheckAlreadySent(NewSend()));
    EXPECT_EQ(platform.TakeMessage(), kFileNotFound);
    EXPECT_EQ(captionsOfBoxes.back(), kCaption);
    ExpectAtRest();
  }
}

struct VerdictCase {
  const char* output;
  int minute;
  Message message;
  const char* caption;  // while the box is up
  const char* archive;
};

TEST_F(SendEntriesTest, TheUploadIsJudgedToldCleanedUpAndArchived) {
  const VerdictCase cases[] = {
      {kComplete,
       7,
       {"Records sent to KTX successfully.", "Send succeeded", MessageIcon::Information},
       "Tallyrun v1.0 : Pay In...Records sent to KTX successfully.",
       "Sent\\05-Jan-2010_PI_123456_06-Jan-10_04-07-55PM.txt"},
      {"Login failed.\r\n",
       8,
       {"Records were not sent to KTX.", "Send failed", MessageIcon::Critical},
       "Tallyrun v1.0 : Pay In...Records were not sent to KTX.",
       "Sent\\05-Jan-2010_PI_123456_06-Jan-10_04-08-55PM.txt"},
  };
  for (const VerdictCase& each : cases) {
    SCOPED_TRACE(each.output);
    platform.now.minute = each.minute;
    FillRows(grid, {"1|a"});
    const EntrySend send = NewSend();
    WriteEntryFile(send);
    PlayClient(each.output, [this] {
      EXPECT_EQ(folder.Read(kFileName), "~\r\n1~a\r");
      FillRows(grid, {"1|edited meanwhile"});
    });
    UploadEntryFile(send);
    EXPECT_EQ(script, SendScript("05-Jan-2010", kFileName));
    EXPECT_EQ(platform.TakeMessage(), each.message);
    EXPECT_EQ(captionsOfBoxes.back(), each.caption);
    EXPECT_FALSE(HasTransferFiles());
    // The archive holds what was sent, under the moment of the attempt.
    EXPECT_EQ(folder.Read(each.archive), "~\r\n1~a\r");
    ExpectAtRest();
  }
}

TEST_F(SendEntriesTest, NoAttemptReplacesAnotherInTheArchive) {
  platform.now = {2010, 12, 31, 23, 59, 59, 0};
  for (const char* cell : {"first", "second", "third"}) {
    grid.SetText(1, 1, cell);
    PlayClient("");
    UploadEntryFile(NewSend());
  }
  EXPECT_EQ(folder.Read("Sent\\05-Jan-2010_PI_123456_31-Dec-10_11-59-59PM.txt"), "~\r\n1~first\r");
  EXPECT_EQ(folder.Read("Sent\\05-Jan-2010_PI_123456_01-Jan-11_12-00-00AM.txt"), "~\r\n1~second\r");
  EXPECT_EQ(folder.Read("Sent\\05-Jan-2010_PI_123456_01-Jan-11_12-00-01AM.txt"), "~\r\n1~third\r");
}

TEST_F(SendEntriesTest, AnErrorInTheUploadLeavesCaptionAndPointerAndArchivesNothing) {
  expectedPointer = PointerShape::Hourglass;
  PlayClient(std::nullopt);
  UploadEntryFile(NewSend());
  EXPECT_EQ(platform.TakeMessage(), kFileNotFound);
  EXPECT_FALSE(folder.Has("Sent"));
  ExpectBusy();
}

}  // namespace
}  // namespace tallyrun
