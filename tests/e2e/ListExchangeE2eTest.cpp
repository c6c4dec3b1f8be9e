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

constexpr char kNewer[] =
    "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n1~QK0001002100~Alder Works~ALDERCEM~11001\r";

class ListExchangeE2e : public ExchangeDay {
 protected:
  OpenWindow List(const std::string& kind) {
    return Clerk().Window("Tallyrun v1.0 : List of " + kind + "s");
  }

  void OpenBoList() {
    Start();
    Main().Click(frmMainIds::kBtnList);
    List("BO");
    Clerk().WaitUntilPainted();
  }

  void Receive(const std::string& faults, const std::string& onExchange) {
    WriteBytes(OnExchange("ISIN.txt"), onExchange);
    SetFaults(faults);
    List("ISIN").Click(kBtnUpdateList);
  }
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
  OpenBoList();
  List("BO").Choose(kCmbListOf, "List of ISINs");
  List("ISIN");
  const std::string older = ReadBytes(Work("ISIN.txt"));
  Receive("drop-download", kNewer);
  ExpectBox("Receive failed", "List of ISINs not received from KTX.");
  ExpectTransferFilesGone();
  EXPECT_EQ(ReadBytes(Work("ISIN.txt")), older);

  Receive("", kNewer);
  ExpectBox("Recieve succeeded", "List of ISINs received from KTX successfully.");
  ExpectTransferFilesGone();
  EXPECT_EQ(ReadBytes(Work("ISIN.txt")), kNewer);
  const auto names = NamesIn(Work(""));
  ASSERT_THAT(names,
              ElementsAre(MatchesRegex("20..-..-.._..-..-.._ISIN.txt"), "BO.txt", "ISIN.txt"));
  EXPECT_EQ(ReadBytes(Work(names[0])), older);
}

}  // namespace
}  // namespace tallyrun::testing
