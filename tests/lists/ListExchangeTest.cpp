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
constexpr char kCaptions[] = "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n";

class ListExchange : public ::testing::Test {
 protected:
  ListExchange() {
    Settings.backupLocation = folder_.Path();
    Settings.brokerId = "123456";
    platform_.now = {2010, 5, 6, 14, 30, 5, 0};
    window_.caption = kCaption;
    platform_.onStart = [this](const std::string&, WindowMode) {
      captionMeanwhile_ = window_.caption;
      pointerMeanwhile_ = window_.pointer;
      scriptSent_ = folder_.Read("ftp2KTX.txt");
      if (folder_.Has("BO_123456.txt")) rowsSent_ = folder_.Read("BO_123456.txt");
      if (!download_.empty()) folder_.Write("ISIN.txt", download_);
      if (!output_.empty()) folder_.Write("out.txt", output_);
      return std::make_unique<EndedAtOnce>();
    };
    platform_.onMessage = [this](const Message&) {
      captionAtOutcome_ = window_.caption;
      pointerAtOutcome_ = window_.pointer;
    };
  }
  ~ListExchange() override {
    Settings = {};
    CurrentListKind.clear();
  }

  void Show(const std::string& kind, const std::vector<std::string>& rows) {
    CurrentListKind = kind;
    LayOutListGrid(grid_, kind);
    FillRows(grid_, rows);
  }

  void ExpectOutcome(const std::string& text, const std::string& title, MessageIcon icon) {
    EXPECT_EQ(platform_.TakeMessage(), (Message{text, title, icon}));
    EXPECT_EQ(captionAtOutcome_, std::string(kCaption) + "..." + text);
    EXPECT_EQ(pointerAtOutcome_, PointerShape::Normal);
    ExpectWindowAsBefore();
  }

  void ExpectWindowAsBefore() {
    EXPECT_EQ(window_.caption, kCaption);
    EXPECT_EQ(window_.pointer, PointerShape::Normal);
  }

  struct EndedAtOnce : Process {
    std::optional<unsigned long> ExitCode() override { return 0; }
  };

  RecordingPlatform platform_;
  TempFolder folder_;
  FakeBusyWindow window_;
  FlexGrid grid_;

  // What the exchange does: what its client prints, and the ISIN list it brings.
  std::string output_ = kDone;
  std::string download_;

  std::string captionMeanwhile_;
  PointerShape pointerMeanwhile_ = PointerShape::Normal;
  std::string scriptSent_;
  std::string rowsSent_;
  std::string captionAtOutcome_;
  PointerShape pointerAtOutcome_ = PointerShape::Hourglass;
};

TEST_F(ListExchange, ScriptsAreTheExchangesOwnLines) {
  const std::string connection = std::string("open ") + kExchangeAddress +
                                 "\r\nledgerhand\r\nqz5071\r\nprompt\r\ncd entry\r\n";
  EXPECT_EQ(SendBoListScript("123456", {2010, 5, 6, 14, 30, 5, 0}),
            connection +
                "mkdir BO_123456\r\n"
                "rename BO_123456.txt BO_123456/BO_123456_06-May-10_02-30-05PM.txt\r\n"
                "put BO_123456.txt\r\n"
                "bye");
  EXPECT_EQ(ReceiveIsinListScript(), connection + "get ISIN.txt\r\nbye");
}

TEST_F(ListExchange, TheShownRowsAreSentAndNothingStaysBehind) {
  folder_.Write("BO.txt", "as last saved");
  Show(kBoKind, {"1|1201950000000017|Jos\xE9|C001"});
  SendBoList(grid_, window_);
  EXPECT_EQ(rowsSent_, "S/N~BO ID~BO Name~Client Code\r\n1~1201950000000017~Jos\xE9~C001\r");
  EXPECT_EQ(scriptSent_, SendBoListScript("123456", platform_.now));
  EXPECT_EQ(captionMeanwhile_, "Sending list of BOs to KTX...Please wait...");
  EXPECT_EQ(pointerMeanwhile_, PointerShape::Hourglass);
  ExpectOutcome("List of BOs sent to KTX successfully.", "Send succeeded",
                MessageIcon::Information);
  EXPECT_EQ(folder_.Read("BO.txt"), "as last saved");
  EXPECT_EQ(folder_.EntryCount(), 1);
}

TEST_F(ListExchange, AnythingButTheExactReplyIsAFailedSend) {
  output_ = "226 transfer COMPLETE.";
  Show(kBoKind, {"1|a|b|c"});
  SendBoList(grid_, window_);
  ExpectOutcome("List of BOs not sent to KTX.", "Send failed", MessageIcon::Critical);
  EXPECT_EQ(folder_.EntryCount(), 0);
}

TEST_F(ListExchange, ABlankRowSendsNothing) {
  Show(kBoKind, {"1|a|b|c", "2|||"});
  SendBoList(grid_, window_);
  EXPECT_EQ(platform_.TakeMessage().title, "Blank Row Found.");
  EXPECT_TRUE(platform_.started.empty());
  EXPECT_EQ(folder_.EntryCount(), 0);
  ExpectWindowAsBefore();
}

TEST_F(ListExchange, AReceivedListIsShownAndTheOneBeforeKept) {
  folder_.Write("ISIN.txt", "old\r");
  download_ = kCaptions + std::string("1~INE0AA101011~ALPHA~ALP~501\r\n2~INE0BB202022~BETA~BET~7");
  Show(kIsinKind, {"1||||"});
  ReceiveIsinList(grid_, window_);
  EXPECT_EQ(scriptSent_, ReceiveIsinListScript());
  EXPECT_EQ(captionMeanwhile_, "Receiving list of ISINs from KTX...Please wait...");
  ExpectOutcome("List of ISINs received from KTX successfully.", "Recieve succeeded",
                MessageIcon::Information);
  EXPECT_EQ(RowsOf(grid_), (std::vector<std::string>{"1|INE0AA101011|ALPHA|ALP|501",
                                                     "2|INE0BB202022|BETA|BET|7"}));
  EXPECT_EQ(folder_.Read("2010-05-06_14-30-05_ISIN.txt"), "old\r");
  EXPECT_EQ(folder_.Read("ISIN.txt"), download_);
  EXPECT_EQ(folder_.EntryCount(), 2);

  platform_.now.second = 6;
  ReceiveIsinList(grid_, window_);
  EXPECT_EQ(folder_.Read("2010-05-06_14-30-06_ISIN.txt"), download_);
}

TEST_F(ListExchange, AFailedReceivePutsTheListBack) {
  folder_.Write("ISIN.txt", "old\r");
  download_ = "half of the n";
  output_ = "425 Connection lost.";
  Show(kIsinKind, {"1|edited|||"});
  ReceiveIsinList(grid_, window_);
  ExpectOutcome("List of ISINs not received from KTX.", "Receive failed", MessageIcon::Critical);
  EXPECT_EQ(folder_.Read("ISIN.txt"), "old\r");
  EXPECT_EQ(folder_.EntryCount(), 1);
  EXPECT_EQ(RowsOf(grid_), std::vector<std::string>{"1|edited|||"});
}

TEST_F(ListExchange, AFailedReceiveWithNoListBeforeLeavesTheTransfersFiles) {
  output_ = "530 Login incorrect.";
  Show(kIsinKind, {"1||||"});
  try {
    ReceiveIsinList(grid_, window_);
    ADD_FAILURE() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Kind(), ErrorKind::FileNotFound);
  }
  ExpectOutcome("List of ISINs not received from KTX.", "Receive failed", MessageIcon::Critical);
  for (const char* name : {"ftp2KTX.txt", "ftp2KTX.bat", "out.txt"}) {
    EXPECT_TRUE(folder_.Has(name)) << name;
  }
}

// The transfer itself went well, and the file is there for the clerk to look into.
TEST_F(ListExchange, AListThatCannotBeReadIsToldBeforeTheOutcome) {
  folder_.Write("ISIN.txt", "old\r");
  download_ = kCaptions + std::string("1~a~b~c~d~one too many\r");
  Show(kIsinKind, {"1||||"});
  ReceiveIsinList(grid_, window_);
  ASSERT_EQ(platform_.messages.size(), 2u);
  EXPECT_EQ(platform_.messages[0].title, "Error loading file into list.");
  EXPECT_EQ(platform_.messages[1].title, "Recieve succeeded");
  ExpectWindowAsBefore();
}

TEST_F(ListExchange, AListSwitchedMeanwhileKeepsItsRows) {
  download_ = kCaptions + std::string("1~INE0AA101011~ALPHA~ALP~501\r");
  Show(kIsinKind, {"1||||"});
  platform_.onMessage = nullptr;
  platform_.onPendingEvents = [this] { Show(kBoKind, {"1|a|b|c"}); };
  ReceiveIsinList(grid_, window_);
  EXPECT_EQ(RowsOf(grid_), std::vector<std::string>{"1|a|b|c"});
  EXPECT_EQ(platform_.TakeMessage().title, "Recieve succeeded");
}

TEST_F(ListExchange, AClientThatPrintsNothingIsAnErrorAndTheWindowIsItselfAgain) {
  output_.clear();
  Show(kBoKind, {"1|a|b|c"});
  EXPECT_THROW(SendBoList(grid_, window_), RuntimeError);
  EXPECT_TRUE(platform_.messages.empty());
  ExpectWindowAsBefore();
}

TEST_F(ListExchange, AnEndingProgramTouchesNoWindow) {
  platform_.onPendingEvents = [] { throw ProgramEnding{}; };
  Show(kBoKind, {"1|a|b|c"});
  EXPECT_THROW(SendBoList(grid_, window_), ProgramEnding);
  EXPECT_EQ(window_.caption, captionMeanwhile_);
}

}  // namespace
}  // namespace tallyrun::testing
