// The list window's exchange with the practice exchange: sending the BO list, receiving the ISIN
// list.
#include <windows.h>

#include <gmock/gmock.h>

#include "app/frmMainIds.h"
#include "lists/frmListIds.h"
#include "practice/clerk/Waiting.h"
#include "tests/e2e/ExchangeDay.h"

namespace tallyrun::testing {
namespace {

using namespace frmListIds;
using ::testing::ElementsAre;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

constexpr char kNewer[] =
    "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n1~QK0001002100~Alder Works~ALDERCEM~11001\r";

class ListExchangeE2e : public ExchangeDay {
 protected:
  OpenWindow List(const std::string& kind) const {
    return Clerk().Window("Tallyrun v1.0 : List of " + kind + "s");
  }

  void OpenBoList() {
    Start();
    Main().Click(frmMainIds::kBtnList);
    List("BO");
    Clerk().WaitUntilPainted();
  }

  void OpenIsinList() {
    OpenBoList();
    List("BO").Choose(kCmbListOf, "List of ISINs");
    List("ISIN");
    older_ = ReadBytes(Work("ISIN.txt"));
  }

  void Receive(const std::string& faults, const std::string& onExchange) {
    WriteBytes(OnExchange("ISIN.txt"), onExchange);
    SetFaults(faults);
    List("ISIN").Click(kBtnUpdateList);
  }
  void ExpectReceived() {
    ExpectBox("Recieve succeeded", "List of ISINs received from KTX successfully.");
  }
  void ExpectNotReceived() { ExpectBox("Receive failed", "List of ISINs not received from KTX."); }

  std::string older_;
};

TEST_F(ListExchangeE2e, ASentBoListIsTheRowsShownAndPutsTheFormerAside) {
  OpenBoList();
  const std::string saved = ReadBytes(Work("BO.txt"));
  const std::string shown = saved + "\r";  // a loaded list's last cell keeps the file's end
  List("BO").Click(kBtnUpdateList);
  ExpectBox("Send succeeded", "List of BOs sent to KTX successfully.");
  ExpectTransferFilesGone();
  EXPECT_EQ(ReadBytes(OnExchange("BO_410275.txt")), shown);
  EXPECT_THAT(NamesIn(OnExchange("BO_410275")), ElementsAre());

  SetFaults("refuse-upload");
  List("BO").Click(kBtnUpdateList);
  ExpectBox("Send failed", "List of BOs not sent to KTX.");
  SetFaults("");

  List("BO").Click(kBtnAdd);
  ASSERT_TRUE(Holds([&] { return List("BO").IsVisible(kTxtEditor); }));
  TypeText("99");
  PressKey(VK_RETURN);
  ASSERT_TRUE(Holds([&] { return !List("BO").IsVisible(kTxtEditor); }));
  List("BO").Click(kBtnUpdateList);
  ExpectBox("Send succeeded", "List of BOs sent to KTX successfully.");
  ExpectTransferFilesGone();
  EXPECT_TRUE(Contains(OnExchange("BO_410275.txt"), "~7702310000000099~~\r"));
  EXPECT_EQ(ReadBytes(Work("BO.txt")), saved);
  EXPECT_TRUE(Holds([&] { return !IsThere(Work("BO_410275.txt")); }));
  const auto former = NamesIn(OnExchange("BO_410275"));
  ASSERT_THAT(former, ElementsAre(MatchesRegex("BO_410275_..-...-.._..-..-...*.txt")));
  EXPECT_EQ(ReadBytes(OnExchange("BO_410275\\" + former[0])), shown);
}

TEST_F(ListExchangeE2e, AReceivedIsinListTakesThePlaceOfTheFormerWhichIsKept) {
  OpenIsinList();
  Receive("drop-download", kNewer);
  ExpectNotReceived();
  ExpectTransferFilesGone();
  EXPECT_EQ(ReadBytes(Work("ISIN.txt")), older_);
  EXPECT_THAT(NamesIn(Work("")), ElementsAre("BO.txt", "ISIN.txt"));

  Receive("", kNewer);
  ExpectReceived();
  ExpectTransferFilesGone();
  EXPECT_EQ(ReadBytes(Work("ISIN.txt")), kNewer);
  const auto names = NamesIn(Work(""));
  ASSERT_THAT(names,
              ElementsAre(MatchesRegex("20..-..-.._..-..-.._ISIN.txt"), "BO.txt", "ISIN.txt"));
  EXPECT_EQ(ReadBytes(Work(names[0])), older_);

  // Neither an empty file nor a cell too many can be shown.
  for (const char* unusable : {"", "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code~More\r"}) {
    Receive("", unusable);
    const Box box = Clerk().Answer("OK");
    EXPECT_EQ(box.title, "Error loading file into list.");
    EXPECT_THAT(box.text, StartsWith("Tried to read file: " + Work("ISIN.txt") + "\r\n"));
    ExpectReceived();
    ExpectTransferFilesGone();
    EXPECT_EQ(ReadBytes(Work("ISIN.txt")), unusable);
  }
}

TEST_F(ListExchangeE2e, AWindowClosedMeanwhileLeavesTheExchangeToComeToItsEnd) {
  OpenIsinList();
  Receive("never-answer", kNewer);
  ASSERT_TRUE(Holds([&] { return Contains(Work("out.txt"), "Connected"); }));
  const OpenWindow list = Clerk().Window("Receiving list of ISINs from KTX...Please wait...");
  list.Click(kBtnClose);
  EXPECT_TRUE(Holds([&] { return !list.IsOpen(); }));
  SetFaults("");
  ExpectReceived();
  ExpectTransferFilesGone();
  EXPECT_EQ(ReadBytes(Work("ISIN.txt")), kNewer);
  Exit(Clerk());
}

TEST_F(ListExchangeE2e, AFailedReceiveWithNoListBeforeHasNothingToPutBack) {
  OpenIsinList();
  ASSERT_TRUE(DeleteFileA(Work("ISIN.txt").c_str()));
  Receive("refuse-login", kNewer);
  ExpectNotReceived();
  ExpectBox("Tallyrun", "File not found");
  ExpectCaption("Tallyrun v1.0 : Pay In");
  EXPECT_THAT(NamesIn(Work("")), ElementsAre("BO.txt", "ftp2KTX.bat", "ftp2KTX.txt", "out.txt"));

  Receive("", kNewer);
  ExpectReceived();
  ExpectTransferFilesGone();
  EXPECT_THAT(NamesIn(Work("")), ElementsAre("BO.txt", "ISIN.txt"));
}

}  // namespace
}  // namespace tallyrun::testing
