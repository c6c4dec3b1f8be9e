// The day's entry sheet through the real program alone: from the trade file to the entry file.
#include <gtest/gtest.h>

#include "app/frmMainIds.h"
#include "practice/clerk/Waiting.h"
#include "tests/e2e/Steps.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;

// One line of a trade file: what the program reads of it, among what it does not.
std::string Trade(const std::string& scrip, const std::string& side, const std::string& quantity,
                  const std::string& client, const std::string& date) {
  return "230001|" + scrip + "|A|" + side + "|" + quantity + "|99.90|" + client +
         "|D01|10:00:00|N|" + date + "|410275";
}

constexpr char kCaptions[] =
    "S/N~Broker ID~Clearing BOID~Trade Date~Delivery Date~Client Code~BO ID~BO Name~Scrip ID~"
    "ISIN Code~ISIN Name~Quantity~Internal Ref. No.\r\n";
constexpr char kEmptySheet[] = "1~~~~~~~~~~~~\r";

TEST(EntrySheetTest, TakesTradesToTheSavedFileAndBack) {
  const Workplace place("B\xFCro, 1. Stock");
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

  // Pay Out and back empties the sheet; what is saved then is the empty one.
  MainWindow(clerk).Click(kOptPayOut);
  EXPECT_EQ(clerk.Answer("Yes"),
            Question("Confirm Loading", "Unsaved data will be lost.\r\nAre you sure to continue?"));
  ASSERT_TRUE(Holds([&] { return MainWindow(clerk).Caption() == "Tallyrun v1.0 : Pay Out"; }));
  Save(clerk, "Pay Out", "06-Jan-2010");
  EXPECT_EQ(place.Read("work\\06-Jan-2010_PO_410275.txt"), std::string(kCaptions) + kEmptySheet);
  MainWindow(clerk).Click(kOptPayIn);
  ASSERT_TRUE(Holds([&] { return MainWindow(clerk).Caption() == "Tallyrun v1.0 : Pay In"; }));

  Reload(clerk);
  constexpr int kQuantity = 11;
  EditFirstRow(clerk, kQuantity, "1,500");
  Save(clerk, "Pay In", "06-Jan-2010");
  // The closing CR of the file has become part of the last cell; saving adds another.
  std::string edited = saved + "\r";
  edited.replace(edited.find("~9~\r\n"), 3, "~1500~");
  EXPECT_EQ(place.Read(file), edited);
  Exit(clerk);
}

TEST(EntrySheetTest, KeepsTheRowsBeforeADateThatIsNone) {
  const Workplace place;
  place.Write("import\\PayIn_06-01-2010.TXT",
              Trade("BALTOIL", "S", "100", "S102", "03-01-2010") + "\r\n" +
                  Trade("ALDERCEM", "S", "40", "O101", "31-31-2010") + "\r\n");
  ClerkDriver clerk(place.Program());
  Import(clerk, place.File("import\\PayIn_06-01-2010.TXT"));
  EXPECT_EQ(clerk.Answer("OK"), Notice("Tallyrun", "Type mismatch"));
  Save(clerk, "Pay In", "06-Jan-2010");
  EXPECT_NE(place.Read("work\\06-Jan-2010_PI_410275.txt").find("~BALTOIL~"), std::string::npos);
  Exit(clerk);
}

TEST(EntrySheetTest, RefusesAFileOfAnotherNameAndAsksBeforeRowsAreLost) {
  const Workplace place;
  const std::string trades = Trade("BALTOIL", "S", "100", "S102", "03-01-2010") + "\r\n";
  place.Write("import\\trades_06-01-2010.txt", trades);
  place.Write("import\\payin_06-01-2010.txt", trades);
  place.Write("import\\payout_07-01-2010.txt", trades);
  ClerkDriver clerk(place.Program());
  Import(clerk, place.File("import\\trades_06-01-2010.txt"));
  EXPECT_EQ(clerk.Answer("OK"), Notice("Invalid File", "Unknown file name format."));

  Import(clerk, place.File("import\\payin_06-01-2010.txt"));
  // The other mode's file asks before it switches; declined, only the day has moved on.
  Import(clerk, place.File("import\\payout_07-01-2010.txt"));
  EXPECT_EQ(clerk.Answer("No").title, "Confirm Loading");
  EXPECT_EQ(MainWindow(clerk).Caption(), "Tallyrun v1.0 : Pay In");
  Save(clerk, "Pay In", "07-Jan-2010");
  EXPECT_NE(place.Read("work\\07-Jan-2010_PI_410275.txt").find("~BALTOIL~"), std::string::npos);
  Exit(clerk);
}

TEST(EntrySheetTest, ReportsAQuantityTooLargeToAddUp) {
  const Workplace place;
  place.Write("import\\payin_06-01-2010.txt",
              Trade("BALTOIL", "S", "99999999999", "S102", "03-01-2010") + "\r\n" +
                  Trade("BALTOIL", "S", "1", "S102", "03-01-2010") + "\r\n");
  ClerkDriver clerk(place.Program());
  Import(clerk, place.File("import\\payin_06-01-2010.txt"));
  Summarize(clerk);
  EXPECT_EQ(clerk.Answer("OK"), Notice("Tallyrun", "Overflow"));
  Save(clerk, "Pay In", "06-Jan-2010");
  const std::string saved = place.Read("work\\06-Jan-2010_PI_410275.txt");
  EXPECT_NE(saved.find("~99999999999~"), std::string::npos);
  EXPECT_NE(saved.find("\r\n2~"), std::string::npos);
  Exit(clerk);
}

TEST(EntrySheetTest, TellsWhichFileCannotBeLoadedOrSaved) {
  const Workplace place;
  place.Write("import\\payin_06-01-2010.txt",
              Trade("BALTOIL", "S", "100", "S102", "03-01-2010") + "\r\n");
  const std::string name = "work\\06-Jan-2010_PI_410275.txt";
  ClerkDriver clerk(place.Program());
  Import(clerk, place.File("import\\payin_06-01-2010.txt"));
  Reload(clerk);
  const Box missing = clerk.Answer("OK");
  EXPECT_NE(missing.text.find("Tried to read file: " + place.File(name)), std::string::npos)
      << missing.text;
  EXPECT_NE(missing.text.find("Error Description: File not found"), std::string::npos)
      << missing.text;

  place.Write(name, "another program's");
  HANDLE held =
      CreateFileA(place.File(name).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  MainWindow(clerk).Click(kBtnSave);
  clerk.Answer("Yes");
  const Box refused = clerk.Answer("OK");
  EXPECT_EQ(refused.title, "Tallyrun");
  CloseHandle(held);
  EXPECT_EQ(place.Read(name), "another program's");
  EXPECT_EQ(place.List("work").size(), 3u) << "something was left beside the file";
  Exit(clerk);
}

}  // namespace
}  // namespace tallyrun::testing
