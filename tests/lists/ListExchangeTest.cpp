#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "core/Settings.h"
#include "lists/ListExchange.h"
#include "lists/ListKind.h"
#include "tests/support/FakeBusyWindow.h"
#include "tests/support/GridText.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"
#include "transfer/FtpScript.h"

namespace tallyrun::testing {
namespace {

constexpr char kCaption[] = "Tallyrun v1.0 : the list";
constexpr char kDone[] = "226 Transfer complete.";
constexpr char kNewList[] =
    "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n1~INE0AA101011~ALPHA~ALP~501";

class ListExchange : public ::testing::Test {
 protected:
  ListExchange() {
    Settings.backupLocation = folder_.Path();
    Settings.brokerId = "123456";
    platform_.now = {2010, 5, 6, 14, 30, 5, 0};
    window_.caption = kCaption;
    platform_.onPendingEvents = [this] { RunClient(); };
    platform_.onMessage = [this](const Message&) {
      captionAtOutcome_ = window_.caption;
      pointerAtOutcome_ = window_.pointer;
    };
  }
  ~ListExchange() override {
    Settings = {};
    CurrentListKind.clear();
  }

  // What the client does while it is waited for.
  void RunClient() {
    captionMeanwhile_ = window_.caption;
    pointerMeanwhile_ = window_.pointer;
    scriptRun_ = folder_.Read("ftp2KTX.txt");
    if (folder_.Has("BO_123456.txt")) rowsSent_ = folder_.Read("BO_123456.txt");
    if (!download_.empty()) folder_.Write("ISIN.txt", download_);
    if (!output_.empty()) folder_.Write("out.txt", output_);
  }

  void Exchange(const std::string& kind, const std::vector<std::string>& rows) {
    CurrentListKind = kind;
    LayOutListGrid(grid_, kind);
    FillRows(grid_, rows);
    kind == kBoKind ? SendBoList(grid_, window_) : ReceiveIsinList(grid_, window_);
  }

  void ExpectWindowAsBefore() {
    EXPECT_EQ(window_.caption, kCaption);
    EXPECT_EQ(window_.pointer, PointerShape::Normal);
  }

  RecordingPlatform platform_;
  TempFolder folder_;
  FakeBusyWindow window_;
  FlexGrid grid_;

  std::string output_ = kDone;
  std::string download_;  // what comes in as ISIN.txt
  std::string captionMeanwhile_;
  PointerShape pointerMeanwhile_ = PointerShape::Normal;
  std::string scriptRun_;
  std::string rowsSent_;
  std::string captionAtOutcome_;
  PointerShape pointerAtOutcome_ = PointerShape::Hourglass;
};

TEST_F(ListExchange, EachOutcomeIsToldBehindTheCaptionAndLeavesItsFiles) {
  const struct {
    const char* kind;
    const char* output;
    const char* download;
    const char* progress;
    Message outcome;
    const char* isinFile;
    int filesLeft;
  } cases[] = {
      {kBoKind,
       "150 Opening.\r\n226 Transfer complete.\r\n",
       "",
       "Sending list of BOs to KTX...Please wait...",
       {"List of BOs sent to KTX successfully.", "Send succeeded", MessageIcon::Information},
       "old\r",
       1},
      {kBoKind,
       "226 transfer COMPLETE.",
       "",
       "Sending list of BOs to KTX...Please wait...",
       {"List of BOs not sent to KTX.", "Send failed", MessageIcon::Critical},
       "old\r",
       1},
      {kIsinKind,
       "425 Connection lost.",
       "half of the n",
       "Receiving list of ISINs from KTX...Please wait...",
       {"List of ISINs not received from KTX.", "Receive failed", MessageIcon::Critical},
       "old\r",
       1},
      {kIsinKind,
       kDone,
       kNewList,
       "Receiving list of ISINs from KTX...Please wait...",
       {"List of ISINs received from KTX successfully.", "Recieve succeeded",
        MessageIcon::Information},
       kNewList,
       2},
  };
  folder_.Write("ISIN.txt", "old\r");
  for (const auto& each : cases) {
    output_ = each.output;
    download_ = each.download;
    Exchange(each.kind, {"1|a|b|c"});
    EXPECT_EQ(captionMeanwhile_, each.progress);
    EXPECT_EQ(pointerMeanwhile_, PointerShape::Hourglass);
    EXPECT_EQ(platform_.TakeMessage(), each.outcome);
    EXPECT_EQ(captionAtOutcome_, std::string(kCaption) + "..." + each.outcome.text);
    EXPECT_EQ(pointerAtOutcome_, PointerShape::Normal);
    ExpectWindowAsBefore();
    EXPECT_EQ(folder_.Read("ISIN.txt"), each.isinFile);
    EXPECT_EQ(folder_.EntryCount(), each.filesLeft) << each.outcome.text;
  }
  EXPECT_EQ(folder_.Read("2010-05-06_14-30-05_ISIN.txt"), "old\r");
  EXPECT_EQ(RowsOf(grid_), std::vector<std::string>{"1|INE0AA101011|ALPHA|ALP|501"});
}

TEST_F(ListExchange, TheShownRowsAndTheExchangesOwnLinesAreSent) {
  const std::string connection = std::string("open ") + kExchangeAddress +
                                 "\r\nledgerhand\r\nqz5071\r\nprompt\r\ncd entry\r\n";
  folder_.Write("BO.txt", "as last saved");
  Exchange(kBoKind, {"1|1201950000000017|Jos\xE9|C001"});
  EXPECT_EQ(scriptRun_, connection +
                            "mkdir BO_123456\r\n"
                            "rename BO_123456.txt BO_123456/BO_123456_06-May-10_02-30-05PM.txt\r\n"
                            "put BO_123456.txt\r\n"
                            "bye");
  EXPECT_EQ(rowsSent_, "S/N~BO ID~BO Name~Client Code\r\n1~1201950000000017~Jos\xE9~C001\r");
  EXPECT_EQ(folder_.Read("BO.txt"), "as last saved");

  download_ = kNewList;
  Exchange(kIsinKind, {"1|"});
  EXPECT_EQ(scriptRun_, connection + "get ISIN.txt\r\nbye");
}

TEST_F(ListExchange, ABlankRowSendsNothing) {
  Exchange(kBoKind, {"1|a|b|c", "2|||"});
  EXPECT_EQ(platform_.TakeMessage().title, "Blank Row Found.");
  EXPECT_TRUE(platform_.started.empty());
  EXPECT_EQ(folder_.EntryCount(), 0);
  ExpectWindowAsBefore();
}

TEST_F(ListExchange, AFailedReceiveWithNoListBeforeLeavesTheTransfersFiles) {
  output_ = "530 Login incorrect.";
  try {
    Exchange(kIsinKind, {"1|"});
    ADD_FAILURE() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Kind(), ErrorKind::FileNotFound);
  }
  EXPECT_EQ(platform_.TakeMessage().title, "Receive failed");
  EXPECT_EQ(folder_.EntryCount(), 3);
  ExpectWindowAsBefore();
}

// The transfer itself went well, and the file is there for the clerk to look into.
TEST_F(ListExchange, AListThatCannotBeReadIsToldBeforeTheOutcome) {
  download_ = std::string(kNewList) + "~one too many";
  Exchange(kIsinKind, {"1|"});
  ASSERT_EQ(platform_.messages.size(), 2u);
  EXPECT_EQ(platform_.messages[0].title, "Error loading file into list.");
  EXPECT_EQ(platform_.messages[1].title, "Recieve succeeded");
}

TEST_F(ListExchange, AListSwitchedMeanwhileKeepsItsRows) {
  download_ = kNewList;
  platform_.onPendingEvents = [this] {
    RunClient();
    CurrentListKind = kBoKind;
    LayOutListGrid(grid_, kBoKind);
    FillRows(grid_, {"1|a|b|c"});
  };
  Exchange(kIsinKind, {"1|"});
  EXPECT_EQ(RowsOf(grid_), std::vector<std::string>{"1|a|b|c"});
}

TEST_F(ListExchange, AnErrorLeavesTheWindowItselfAgainAndAnEndingProgramLeavesItAlone) {
  output_.clear();
  EXPECT_THROW(Exchange(kBoKind, {"1|a|b|c"}), RuntimeError);
  EXPECT_TRUE(platform_.messages.empty());
  ExpectWindowAsBefore();
  platform_.onPendingEvents = [] { throw ProgramEnding{}; };
  EXPECT_THROW(Exchange(kBoKind, {"1|a|b|c"}), ProgramEnding);
  EXPECT_EQ(window_.pointer, PointerShape::Hourglass);
}

}  // namespace
}  // namespace tallyrun::testing
