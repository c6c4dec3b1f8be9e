// The day's entry sheet through the real program alone: from the trade file to the entry file.
#include <gtest/gtest.h>

#include "app/frmMainIds.h"
#include "practice/clerk/Waiting.h"
#include "tests/e2e/Steps.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;

constexpr char kCaptions[] =
    "S/N~Broker ID~Clearing BOID~Trade Date~Delivery Date~Client Code~BO ID~BO Name~Scrip ID~"
    "ISIN Code~ISIN Name~Quantity~Internal Ref. No.\r\n";

TEST(EntrySheetTest, TakesTradesToTheSavedFileAndBack) {
  const Workplace place;
  // A line too short, a purchase, an unknown client and scrip, and no line end at the end.
  place.Write("import\\payin_06-01-2010.txt",
              Trade("BALTOIL", "S", "100", "S102", "03-01-2010") + "\r\n" +
                  Trade("ALDERCEM", "S", "40", "S102", "04-01-2010") + "\r\nshort\r\n" +
                  Trade("ALDERCEM", "B", "7", "O101", "03-01-2010") + "\r\n" +
                  Trade("ALDERCEM", "S", "60", "S102", "03-01-2010") + "\r\n\r\n" +
                  Trade("ALDERCEM", "S", "5", "O101", "03-01-2010") + "\r\n" +
                  Trade("NOSUCH", "S", "9", "Z999", "03-01-2010"));
  const std::string file = "work\\06-Jan-2010_PI_410275.txt";
  const std::string start = "~410275~7702310000000017~03-Jan-2010~06-Jan-2010~";
  const std::string saved =
      std::string(kCaptions) + "1" + start +
      "Z999~~BO NAME NOT FOUND~NOSUCH~~ISIN NAME NOT FOUND~9~\r\n2" + start +
      "O101~7702310000010017~Solveiga Ostvarren~ALDERCEM~QK0001002100~Alder Cement Works Ltd.~5~"
      "I4102750301102\r\n3" +
      start +
      "S102~7702310000010059~\xC7"
      "elik Sandovirez~ALDERCEM~QK0001002100~Alder Cement Works Ltd.~100~I4102750301103\r\n4" +
      start +
      "S102~7702310000010059~\xC7"
      "elik Sandovirez~BALTOIL~QK0001002472~Baltoro Oil and Gas Ltd.~100~I4102750301103\r";

  ClerkDriver clerk(place.Program());
  Import(clerk, place.File("import\\payin_06-01-2010.txt"));
  MainWindow(clerk).Click(kBtnAutoFields);
  Summarize(clerk);
  Save(clerk, "Pay In", "06-Jan-2010");
  EXPECT_EQ(place.Read(file), saved);

  // Pay Out and back empties the sheet.
  MainWindow(clerk).Click(kOptPayOut);
  EXPECT_EQ(clerk.Answer("Yes"),
            Question("Confirm Loading", "Unsaved data will be lost.\r\nAre you sure to continue?"));
  ASSERT_TRUE(Holds([&] { return MainWindow(clerk).Caption() == "Tallyrun v1.0 : Pay Out"; }));
  MainWindow(clerk).Click(kOptPayIn);
  ASSERT_TRUE(Holds([&] { return MainWindow(clerk).Caption() == "Tallyrun v1.0 : Pay In"; }));

  Reload(clerk, "Pay In", "06-Jan-2010");
  constexpr int kQuantity = 11;
  EditFirstRow(clerk, kQuantity, "1,500");
  Save(clerk, "Pay In", "06-Jan-2010");
  // The closing CR of the file has become part of the last cell; saving adds another.
  std::string edited = saved + "\r";
  edited.replace(edited.find("~9~\r\n"), 3, "~1500~");
  EXPECT_EQ(place.Read(file), edited);
  Exit(clerk);
}

}  // namespace
}  // namespace tallyrun::testing
