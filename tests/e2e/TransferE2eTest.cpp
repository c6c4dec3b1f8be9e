// Sending from the real program through the real client to the practice exchange, in fair and foul
// weather.
#include <windows.h>

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
  void StartPayOut() {
    Start();
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
    const size_t attempts = Archived().size() + 1;
    ExpectBox(title, text);
    EXPECT_TRUE(Holds([&] { return Archived().size() == attempts; }));
    ExpectTransferFilesGone();
    ExpectCaption(Main().IsChecked(kOptPayIn) ? kPayInCaption : kPayOutCaption);
  }

  // Sends Pay Out to an exchange that gives no answer; comes back once the client waits for one.
  void SendUnanswered() {
    SetFaults("never-answer");
    Send();
    ExpectCaption(kSending);
    ASSERT_TRUE(Holds([&] { return Contains(Work("out.txt"), "Connected"); }));
  }

  std::string SentFile(const std::string& name) const { return OnExchange("05-Jan-2010\\" + name); }
};

TEST_F(TransferE2e, PayInIsSentOnceAndThenShownInTheEditor) {
  Start();
  ImportDay("payin");
  const std::string holdings = File("import\\11DPA6UX.TXT");
  WriteBytes(holdings, Holdings());
  Send();
  Clerk().CancelFile(kHoldingDialog);
  ExpectBox("Holding Not Checked.",
            "You must select a holding file(DPA6UX.TXT) before sending to KTX.");
  ExpectCaption(kPayInCaption);

  // The first row's holding is missing: told in a window of its own, and nothing is sent.
  const std::string shortFile = File("import\\short.TXT");
  WriteBytes(shortFile, Holdings().erase(Holdings().find("7702310000010017"), 16));
  Send();
  Clerk().ChooseFile(kHoldingDialog, shortFile);
  const OpenWindow problems = Clerk().Window("Tallyrun v1.0 : Holding Balance Message.");
  EXPECT_NE(problems.Describe().find("7702310000010017 QK0001002100 holding balance missing."),
            std::string::npos)
      << problems.Describe();
  PostMessageA(problems.Handle(), WM_CLOSE, 0, 0);
  ExpectCaption(kPayInCaption);
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

TEST_F(TransferE2e, EachTroubleIsToldAndTheNextSendIsAsGoodAsTheFirst) {
  const struct {
    const char* faults;
    bool hasLocalFile;  // the day's file was saved before
    const char *title, *text;
    bool arrives;
  } troubles[] = {{"refuse-login", false, kTallyrun, "File not found", false},
                  {"refuse-login", true, kTallyrun, kAlreadySent, false},
                  {"refuse-upload", true, kFailed, kNotSent, false},
                  {"drop-upload", false, kFailed, kNotSent, false},
                  {"full", false, kFailed, kNotSent, false},
                  {"lowercase-replies", false, kFailed, kNotSent, true},
                  {"", true, kSucceeded, kSent, true}};
  StartPayOut();
  for (const auto& trouble : troubles) {
    SCOPED_TRACE(trouble.faults);
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
}

TEST_F(TransferE2e, TheClerkGoesOnWorkingWhileATransferRuns) {
  StartPayOut();
  SendUnanswered();
  // A second send is refused: the client of the first holds the script.
  Send();
  ExpectBox(kTallyrun, "Permission denied");
  ExpectCaption(kSending);
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
}

TEST_F(TransferE2e, ClosingTheWindowEndsTheProgramAndLeavesTheClientToFinish) {
  StartPayOut();
  SendUnanswered();
  Exit(Clerk());
  const auto saysGoodbye = [&] { return Contains(Work("out.txt"), "221 "); };
  EXPECT_FALSE(saysGoodbye());
  SetFaults("");
  EXPECT_TRUE(Holds(saysGoodbye));
  EXPECT_TRUE(IsThere(OnExchange("05-Jan-2010")));
}

}  // namespace
}  // namespace tallyrun::testing
