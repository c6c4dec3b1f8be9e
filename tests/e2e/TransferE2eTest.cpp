// Sending from the real program through the real client to the practice exchange, in fair and foul
// weather.
#include <windows.h>

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>

#include "app/frmMainIds.h"
#include "lists/frmListIds.h"
#include "practice/clerk/Waiting.h"
#include "tests/e2e/ExchangeDay.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;
using ::testing::ElementsAre;
using ::testing::MatchesRegex;

constexpr char kTallyrun[] = "Tallyrun";
constexpr char kSucceeded[] = "Send succeeded";
constexpr char kSent[] = "Records sent to KTX successfully.";
constexpr char kFailed[] = "Send failed";
constexpr char kNotSent[] = "Records were not sent to KTX.";
constexpr char kAlreadySent[] = "File already sent. Your sent file will be shown now.";
constexpr char kNoLocalFile[] = "File not found";
constexpr char kPayInCaption[] = "Tallyrun v1.0 : Pay In";
constexpr char kPayOutCaption[] = "Tallyrun v1.0 : Pay Out";
constexpr char kSending[] = "Tallyrun v1.0 : Pay Out...Sending records to KTX...Please wait.";

constexpr char kPayInSheet[] =
    "S/N~Broker ID~Clearing BOID~Trade Date~Delivery Date~Client Code~BO ID~BO Name~Scrip ID~"
    "ISIN Code~ISIN Name~Quantity~Internal Ref. No.\r\n"
    "1~410275~7702310000000017~03-Jan-2010~05-Jan-2010~O101~7702310000010017~Solveiga Ostvarren~"
    "ALDERCEM~QK0001002100~Alder Cement Works Ltd.~300~I4102750301101\r\n"
    "2~410275~7702310000000017~03-Jan-2010~05-Jan-2010~S102~7702310000010059~\xC7"
    "elik Sandovirez~BALTOIL~QK0001002472~Baltoro Oil and Gas Ltd.~200~I4102750301102\r";

// A holding file in which each of the day's two rows has just enough.
std::string Holdings() {
  std::string text = "11DPA6UX Report for Holding Balances of 04-Jan-2010 : 77023100\r\n";
  for (int line = 2; line <= 8; ++line) text += "header\r\n";
  return text + "7702310000010017 QK0001002100 O101 Alder Cement Works Ltd. 300\r\n" +
         "7702310000010059 QK0001002472 S102 Baltoro Oil and Gas Ltd. 200";
}

class TransferE2e : public ExchangeDay {
 protected:
  void StartPayOut(const std::string& place = "day", const std::string& workingFolder = "") {
    Start(place, workingFolder);
    ImportDay("payout");
  }

  // Names in the archive, without a file that is just being written.
  std::vector<std::string> Archived() const {
    std::vector<std::string> names = NamesIn(Work("Sent"));
    std::erase_if(names, [](const std::string& name) { return name.ends_with(".tmp"); });
    return names;
  }

  // Closes the box that a whole attempt ends with; what stays is one more archived copy.
  void ExpectEnd(const std::string& title, const std::string& text) {
    ExpectBox(title, text);
    ++attempts_;
    EXPECT_TRUE(Holds([&] { return Archived().size() == attempts_; }));
    ExpectTransferFilesGone();
    ExpectCaption(MainWindow(Clerk()).IsChecked(kOptPayIn) ? kPayInCaption : kPayOutCaption);
  }

  // Sends Pay Out to an exchange that gives no answer; comes back once the client waits for one.
  void SendUnanswered() {
    SetFaults("never-answer");
    Send();
    ExpectCaption(kSending);
    ASSERT_TRUE(Holds([&] { return Contains(Work("out.txt"), "Connected"); }));
  }

  std::string SentFile(const std::string& name) const { return OnExchange("05-Jan-2010\\" + name); }

  size_t attempts_ = 0;
};
using HoldingFileE2e = TransferE2e;
using TransferUnderWay = TransferE2e;

TEST_F(TransferE2e, PayInIsSentOnceAndThenShownInTheEditor) {
  Start();
  ImportDay("payin");
  const std::string holdings = File("import\\11DPA6UX.TXT");
  WriteBytes(holdings, Holdings());
  Send();
  Clerk().CancelFile(kHoldingDialog);
  ExpectBox("Holding Not Checked.",
            "You must select a holding file(DPA6UX.TXT) before sending to KTX.");
  EXPECT_FALSE(IsThere(OnExchange("05-Jan-2010")));

  Send();
  Clerk().ChooseFile(kHoldingDialog, holdings);
  ExpectEnd(kSucceeded, kSent);
  EXPECT_EQ(ReadBytes(Work(kPayInFile)), kPayInSheet);
  EXPECT_EQ(ReadBytes(SentFile(kPayInFile)), kPayInSheet);
  const std::string archived = Archived().at(0);
  EXPECT_THAT(archived, MatchesRegex("05-Jan-2010_PI_410275_..-...-.._..-..-...*.txt"));
  EXPECT_EQ(ReadBytes(Work("Sent\\" + archived)), kPayInSheet);

  WriteBytes(Work(kPayInFile), "saved since");
  Send();
  Clerk().ChooseFile(kHoldingDialog, holdings);
  ExpectBox(kTallyrun, kAlreadySent);
  ExpectInEditor(kPayInFile);
  ExpectCaption(kPayInCaption);
  ExpectTransferFilesGone();
  EXPECT_EQ(ReadBytes(Work(kPayInFile)), kPayInSheet);
  EXPECT_EQ(Archived().size(), 1u);
}

TEST_F(TransferE2e, PayOutIsSentFromAnyWorkingFolderWithoutAHoldingFile) {
  const struct {
    const char* place;
    std::string workingFolder;
  } cases[] = {{"day book", ""},
               {"Am\xE9lie's R&D (100%)", ""},
               {"other drive", ExchangeFolder() + "\\..\\work\\"}};
  for (const auto& [place, workingFolder] : cases) {
    SCOPED_TRACE(place);
    StartPayOut(place, workingFolder);
    EXPECT_EQ(workingFolder.empty(), File("")[0] == Work("")[0]);
    attempts_ = 0;
    Send();
    ExpectEnd(kSucceeded, kSent);
    EXPECT_TRUE(Contains(SentFile(kPayOutFile), "~ALDERCEM~"));
    EXPECT_EQ(ReadBytes(SentFile(kPayOutFile)), ReadBytes(Work(kPayOutFile)));
    EXPECT_TRUE(DeleteFileA(SentFile(kPayOutFile).c_str()));
    Exit(Clerk());
  }
}

struct Trouble {
  const char* faults;
  bool hasLocalFile;  // the day's file was saved before
  const char* title;
  const char* text;
  bool arrives = false;
};

// Where the exchange is never reached, the local file alone decides.
constexpr Trouble kUnreached[] = {{"", false, kTallyrun, kNoLocalFile},
                                  {"", true, kTallyrun, kAlreadySent}};

class TransferTrouble : public TransferE2e {
 protected:
  void Meet(const Trouble& trouble) {
    SCOPED_TRACE(std::string(trouble.faults) + (trouble.hasLocalFile ? ", with" : ", without") +
                 " a local file");
    DeleteFileA(Work(kPayOutFile).c_str());
    DeleteFileA(SentFile(kPayOutFile).c_str());
    if (trouble.hasLocalFile) WriteBytes(Work(kPayOutFile), "saved before");
    SetFaults(trouble.faults);
    Send();
    if (trouble.title != kTallyrun) {
      ExpectEnd(trouble.title, trouble.text);
    } else {
      ExpectBox(kTallyrun, trouble.text);
      if (trouble.hasLocalFile) ExpectInEditor(kPayOutFile);
      EXPECT_EQ(Contains(Work(kPayOutFile), "saved before"), trouble.hasLocalFile);
      ExpectCaption(kPayOutCaption);
    }
    EXPECT_EQ(IsThere(SentFile(kPayOutFile)), trouble.arrives);
  }
};

TEST_F(TransferTrouble, EachIsToldAndTheNextSendIsAsGoodAsTheFirst) {
  StartPayOut();
  for (const Trouble& trouble : {Trouble{"refuse-login", false, kTallyrun, kNoLocalFile},
                                 {"refuse-login", true, kTallyrun, kAlreadySent},
                                 {"refuse-upload", true, kFailed, kNotSent},
                                 {"drop-upload", false, kFailed, kNotSent},
                                 {"full", false, kFailed, kNotSent},
                                 {"full", false, kFailed, kNotSent},
                                 {"lowercase-replies", false, kFailed, kNotSent, true},
                                 {"", true, kSucceeded, kSent, true}}) {
    Meet(trouble);
  }
}

TEST_F(TransferTrouble, NothingIsSentWithoutAClient) {
  char path[4096];
  ASSERT_LT(GetEnvironmentVariableA("PATH", path, sizeof path), sizeof path);
  SetEnvironmentVariableA("PATH", "C:\\windows\\system32;C:\\windows");
  StartPayOut();
  SetEnvironmentVariableA("PATH", path);
  for (const Trouble& trouble : kUnreached) Meet(trouble);
}

// The runner starts no exchange for a suite of this name.
using OfflineTransfer = TransferTrouble;

TEST_F(OfflineTransfer, NothingIsSent) {
  StartPayOut();
  for (const Trouble& trouble : kUnreached) Meet(trouble);
}

TEST_F(TransferTrouble, AFolderThatTakesNoFileIsToldInTheSystemsWords) {
  StartPayOut();
  // A folder stands in the script's place.
  ASSERT_TRUE(CreateDirectoryA(Work("ftp2KTX.txt").c_str(), nullptr));
  Send();
  ExpectBox(kTallyrun, "Permission denied");
  ExpectCaption(kPayOutCaption);
  EXPECT_FALSE(IsThere(OnExchange("05-Jan-2010")));
  ASSERT_TRUE(RemoveDirectoryA(Work("ftp2KTX.txt").c_str()));
  // A file stands in the archive's place, found only when all is sent.
  WriteBytes(Work("Sent"), "");
  Send();
  ExpectBox(kSucceeded, kSent);
  ExpectBox(kTallyrun, "Path/File access error");
  ExpectCaption(kPayOutCaption);
  EXPECT_TRUE(IsThere(SentFile(kPayOutFile)));
}

TEST_F(TransferUnderWay, TheClerkGoesOnWorkingWhileATransferRuns) {
  StartPayOut();
  SendUnanswered();
  PressKey(VK_INSERT);
  EXPECT_TRUE(Holds([&] { return Main().IsVisible(kDtpDate); }));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(Holds([&] { return !Main().IsVisible(kDtpDate); }));
  EditFirstRow(Clerk(), 11, "7");
  Main().Click(kBtnList);
  const OpenWindow list = Clerk().Window("Tallyrun v1.0 : List of BOs");
  list.Click(frmListIds::kBtnClose);
  EXPECT_TRUE(Holds([&] { return !list.IsOpen(); }));
  ExpectCaption(kSending);
  SetFaults("");
  ExpectEnd(kSucceeded, kSent);
  // What was checked is what was sent.
  EXPECT_TRUE(Contains(SentFile(kPayOutFile), "~300~"));
  EXPECT_FALSE(Contains(SentFile(kPayOutFile), "\n3~"));
}

TEST_F(TransferUnderWay, ASecondSendWhileOneRunsIsRefusedAndTheFirstEndsWell) {
  StartPayOut();
  SendUnanswered();
  Send();
  // The client of the first holds the script.
  ExpectBox(kTallyrun, "Permission denied");
  ExpectCaption(kSending);
  SetFaults("");
  ExpectEnd(kSucceeded, kSent);
  EXPECT_TRUE(IsThere(SentFile(kPayOutFile)));
}

TEST_F(TransferUnderWay, ClosingTheWindowEndsTheProgramAndLeavesTheClientToFinish) {
  StartPayOut();
  SendUnanswered();
  Exit(Clerk());
  const auto saysGoodbye = [&] { return Contains(Work("out.txt"), "221 "); };
  EXPECT_FALSE(saysGoodbye());
  SetFaults("");
  EXPECT_TRUE(Holds(saysGoodbye));
  EXPECT_TRUE(IsThere(OnExchange("05-Jan-2010")));
}

TEST_F(HoldingFileE2e, EveryKindOfFileIsTold) {
  Start();
  ImportDay("payin");
  const std::string path = File("import\\11DPA6UX.TXT");
  const std::string good = Holdings();
  const auto check = [&](const std::string& text, const std::string& title,
                         const std::string& words) {
    WriteBytes(path, text);
    Main().Click(kBtnCheck);
    Clerk().ChooseFile(kHoldingDialog, path);
    ExpectBox(title, words);
    ExpectCaption(kPayInCaption);
  };
  check("", "Empty File.",
        "The selected file is empty.\r\nPlease properly select the holding file (11DPA6UX.TXT).");
  check("Holdings" + good.substr(good.find("\r\n")), "Holding Check Error.",
        "Error checking BO account holding balance.");
  // 200 MB, with the holdings at their end.
  std::string filler;
  while (filler.size() < 1u << 20)
    filler += "7702310000099999 QK0009999999 X999 No such Ltd. 1\r\n";
  const size_t firstHolding = good.find("\n7702310000010017") + 1;
  std::string large = good.substr(0, firstHolding);
  while (large.size() < 200u << 20) large += filler;
  check(large + good.substr(firstHolding), "Checking Complete.",
        "Holding balance checking completed.");

  // Without carriage returns all is the first line.
  std::string oneLine = good;
  oneLine.erase(std::remove(oneLine.begin(), oneLine.end(), '\r'), oneLine.end());
  WriteBytes(path, oneLine);
  Main().Click(kBtnCheck);
  Clerk().ChooseFile(kHoldingDialog, path);
  const OpenWindow problems = Clerk().Window("Tallyrun v1.0 : Holding Balance Message.");
  EXPECT_NE(problems.Describe().find("7702310000010017 QK0001002100 holding balance missing."),
            std::string::npos)
      << problems.Describe();
  PostMessageA(problems.Handle(), WM_CLOSE, 0, 0);
  ExpectCaption(kPayInCaption);
}

}  // namespace
}  // namespace tallyrun::testing
