// Sending and checking from the real window: captions, pointer and the order of the boxes, with
// the client's output scripted.
#include <gmock/gmock.h>

#include "core/RuntimeError.h"
#include "core/modFileIO.h"
#include "tests/support/GridText.h"
#include "tests/support/MainWindowFixture.h"
#include "ui/MessageLoop.h"

namespace tallyrun {
namespace {

using namespace frmMainIds;
using ::testing::ElementsAre;
using testing::EntryCells;
using testing::FillRows;
using ::testing::HasSubstr;

constexpr char kIdle[] = "Tallyrun v1.0 : Pay In";
constexpr char kSending[] = "Tallyrun v1.0 : Pay In...Sending records to KTX...Please wait.";
constexpr char kNotThere[] = "550 The system cannot find the file specified.";
constexpr char kStored[] = "226 Transfer complete.";
constexpr char kEntryFile[] = "05-Jan-2010_PI_123456.txt";

class frmMainSendTest : public testing::MainWindowFixture {
 protected:
  frmMainSendTest() {
    PickDay(kDtpPayInOrPayOut, {2010, 1, 5});
    FillRows(Sheet(), {Complete("1201950000000001", "KX0001000011", "100")});
    Holdings("80");
    platform.onMessage = [this](const Message& message) {
      const bool hourglass = IsHourglass();
      boxes.push_back((message.title.empty() ? message.text : message.title) + " / " +
                      window.Caption() + (hourglass ? " (hourglass)" : ""));
      if (answersAll && message.buttons == MessageButtons::YesNo) {
        platform.answers = {MessageAnswer::Yes};
      }
    };
    platform.onStart = [this](const std::string& commandLine, WindowMode) {
      if (commandLine.find("ftp2KTX.bat") != std::string::npos) {
        scripts.push_back(ReadWholeFile(folder.Path() + "ftp2KTX.txt"));
        captionsAtStart.push_back(window.Caption());
        if (onTransfer) onTransfer();
        if (!outputs.empty()) {
          WriteWholeFile(folder.Path() + "out.txt", outputs.front());
          outputs.pop_front();
        }
      }
      return std::unique_ptr<Process>(new Ended);
    };
  }

  static std::string Complete(const std::string& boId, const std::string& isin,
                              const std::string& quantity) {
    return "1|123456|1201950000009999|03-Jan-2010|05-Jan-2010|C1|" + boId + "|ANN ALDER|ALPHAM|" +
           isin + "|ALPHA MILLS LTD|" + quantity + "|I1234560301101";
  }

  // A holding file in which the one account holds `balance`.
  void Holdings(const std::string& balance) {
    std::string text = "Report for 123456 BROKER :\r\n";
    for (int line = 2; line <= 8; ++line) text += "header\r\n";
    text += "1201950000000001 KX0001000011 " + balance;
    holdingFile = Write("11DPA6UX.TXT", text);
  }

  void Send() {
    boxes.clear();
    platform.messages.clear();
    platform.files = {holdingFile};
    platform.answers = {MessageAnswer::Yes};
    Click(kBtnSend);
  }

  bool IsHourglass() {
    SendMessageA(window.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window.Handle()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return GetCursor() == LoadCursorA(nullptr, IDC_WAIT);
  }

  void ExpectIdle() {
    EXPECT_EQ(window.Caption(), kIdle);
    EXPECT_FALSE(IsHourglass());
  }

  std::vector<std::string> SentNames() { return ListFiles(folder.Path() + "Sent\\*"); }

  class Ended : public Process {
   public:
    std::optional<unsigned long> ExitCode() override { return 0; }
  };

  std::string holdingFile;
  std::deque<std::string> outputs;  // of the client, transfer after transfer
  std::function<void()> onTransfer;
  std::vector<std::string> scripts;
  std::vector<std::string> captionsAtStart;
  std::vector<std::string> boxes;  // "title / caption meanwhile"
  bool answersAll = false;
};

TEST_F(frmMainSendTest, APayInDayIsCheckedSentAndArchived) {
  Holdings("100");
  outputs = {kNotThere, kStored};
  Send();
  EXPECT_THAT(boxes, ElementsAre(std::string("Pay In of 05-Jan-2010 Send Confirmation / ") + kIdle,
                                 std::string("Send succeeded / ") + kIdle +
                                     "...Records sent to KTX successfully."));
  EXPECT_EQ(platform.messages[0].text,
            "Are you sure to send the entered records to KTX as Pay In file of 05-Jan-2010 ?");
  EXPECT_THAT(captionsAtStart, ElementsAre(kSending, kSending));
  EXPECT_EQ(scripts.size(), 2u);
  EXPECT_THAT(SentNames(), ElementsAre("05-Jan-2010_PI_123456_06-Jan-10_04-12-55PM.txt"));
  EXPECT_EQ(ReadWholeFile(folder.Path() + kEntryFile),
            ReadWholeFile(folder.Path() + "Sent\\" + SentNames()[0]));
  EXPECT_FALSE(FileExists(folder.Path() + "ftp2KTX.txt"));
  ExpectIdle();
}

TEST_F(frmMainSendTest, EveryStopPutsCaptionAndPointerBack) {
  const struct {
    const char* name;
    std::function<void()> prepare;
    const char* title;
  } cases[] = {
      {"a missing field", [&] { Sheet().SetText(1, EntryColumn::kBoName, " "); },
       "Missing BO Name"},
      {"an unknown BO", [&] { Sheet().SetText(1, EntryColumn::kBoName, "BO NAME NOT FOUND"); },
       "Invalid BOID"},
      {"an unknown ISIN",
       [&] { Sheet().SetText(1, EntryColumn::kIsinName, "ISIN NAME NOT FOUND"); },
       "Invalid ISIN Code"},
      {"a wrong prefix", [&] { Sheet().SetText(1, EntryColumn::kInternalRef, "O1"); },
       "Invalid Internal Ref. No."},
      {"not summarised",
       [&] {
         const std::string row = Complete("1201950000000001", "KX0001000011", "5");
         FillRows(Sheet(), {row, row});
       },
       "Not Summarized."},
      {"no holding file chosen", [&] { holdingFile.clear(); }, "Holding Not Checked."},
      {"an empty holding file", [&] { holdingFile = Write("empty.txt", ""); }, "Empty File."},
      {"a holding file that is gone", [&] { holdingFile = folder.Path() + "gone.txt"; },
       "Holding Check Error."},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    FillRows(Sheet(), {Complete("1201950000000001", "KX0001000011", "100")});
    Holdings("100");
    each.prepare();
    boxes.clear();
    platform.messages.clear();
    platform.answers = {MessageAnswer::Yes};
    platform.files = {holdingFile.empty() ? std::nullopt : std::optional(holdingFile)};
    Click(kBtnSend);
    ASSERT_EQ(platform.messages.size(), 2u);
    EXPECT_EQ(platform.messages[1].title, each.title);
    EXPECT_TRUE(scripts.empty());
    ExpectIdle();
  }
}

TEST_F(frmMainSendTest, TheFaultyColumnIsMadeCurrent) {
  Sheet().SetText(1, EntryColumn::kIsinName, "");
  Send();
  EXPECT_EQ(platform.messages.back().text, "ISIN Name is not given in row number 1.");
  EXPECT_EQ(Sheet().Col(), EntryColumn::kIsinName);
}

TEST_F(frmMainSendTest, PayOutAsksForNoHoldingFile) {
  platform.answers = {MessageAnswer::Yes};
  Click(kOptPayOut);
  FillRows(Sheet(), {Complete("1201950000000001", "KX0001000011", "100")});
  Sheet().SetText(1, EntryColumn::kInternalRef, "O1234560301101");
  outputs = {kNotThere, kStored};
  Send();
  EXPECT_TRUE(platform.fileRequests.empty());
  EXPECT_EQ(platform.messages.back().title, "Send succeeded");
  EXPECT_THAT(SentNames(), ElementsAre("05-Jan-2010_PO_123456_06-Jan-10_04-12-55PM.txt"));
}

TEST_F(frmMainSendTest, AFileThatIsThereAlreadyIsShownInstead) {
  Holdings("100");
  Write(kEntryFile, "sent before");
  outputs = {"226 Transfer complete."};
  Send();
  EXPECT_EQ(platform.messages.back(),
            (Message{"File already sent. Your sent file will be shown now.", "Tallyrun",
                     MessageIcon::Critical}));
  EXPECT_EQ(platform.started.back().commandLine, "notepad \"" + folder.Path() + kEntryFile + "\"");
  EXPECT_EQ(scripts.size(), 1u);
  ExpectIdle();
}

TEST_F(frmMainSendTest, AFailedUploadIsToldAndArchived) {
  Holdings("100");
  outputs = {kNotThere, "226 transfer complete."};  // other letter case does not count
  Send();
  EXPECT_EQ(boxes.back(),
            std::string("Send failed / ") + kIdle + "...Records were not sent to KTX.");
  EXPECT_EQ(SentNames().size(), 1u);
  ExpectIdle();
}

// The upload's own error leaves its progress on screen, as its box is the last word.
TEST_F(frmMainSendTest, AMissingOutputEndsEachTransferItsOwnWay) {
  Holdings("100");
  Send();  // the client wrote nothing at all
  EXPECT_EQ(platform.messages.back(), (Message{"File not found", "Tallyrun", MessageIcon::None}));
  ExpectIdle();

  outputs = {kNotThere};
  Send();
  EXPECT_EQ(platform.messages.back(), (Message{"File not found", "Tallyrun", MessageIcon::None}));
  EXPECT_EQ(window.Caption(), kSending);
  EXPECT_TRUE(IsHourglass());
}

TEST_F(frmMainSendTest, ASecondSendMeanwhileEndsLikeTheFirst) {
  Holdings("100");
  outputs = {kNotThere, kNotThere, kStored, kStored};
  bool nested = false;
  answersAll = true;
  onTransfer = [&] {
    if (nested) return;
    nested = true;
    platform.files = {holdingFile};
    Click(kBtnSend);
    EXPECT_EQ(window.Caption(), kSending);
  };
  Send();
  EXPECT_TRUE(nested);
  ExpectIdle();
}

TEST_F(frmMainSendTest, AModeChosenMeanwhileIsWhatTheCaptionComesBackTo) {
  Holdings("100");
  outputs = {kNotThere, kStored};
  answersAll = true;
  onTransfer = [&] { Click(kOptPayOut); };
  Send();
  EXPECT_EQ(window.Caption(), "Tallyrun v1.0 : Pay Out");
  EXPECT_THAT(SentNames(), ElementsAre("05-Jan-2010_PI_123456_06-Jan-10_04-12-55PM.txt"));
  EXPECT_THAT(ReadWholeFile(folder.Path() + kEntryFile), HasSubstr("~100~I1234560301101"));
}

TEST_F(frmMainSendTest, ClosingTheWindowMeanwhileEndsTheProgramQuietly) {
  Holdings("100");
  bool closed = false;
  platform.onStart = [&](const std::string&, WindowMode) {
    class Running : public Process {
     public:
      std::optional<unsigned long> ExitCode() override { return std::nullopt; }
    };
    return std::unique_ptr<Process>(new Running);
  };
  platform.onPendingEvents = [&] {
    if (!closed) PostMessageA(window.Handle(), WM_CLOSE, 0, 0);
    closed = true;
    PumpMessages();
  };
  Send();
  EXPECT_TRUE(closed);
  EXPECT_EQ(platform.messages.size(), 1u);  // the question alone
  RunMessageLoop();
  EXPECT_FALSE(window.IsLoaded());
}

TEST_F(frmMainSendTest, CheckHoldingTellsWhenAllIsWell) {
  Holdings("100");
  platform.files = {holdingFile};
  Click(kBtnCheck);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Holding balance checking completed.",
                                             "Checking Complete.", MessageIcon::Information}));
  ExpectIdle();
}

}  // namespace
}  // namespace tallyrun
