// How the shipped program starts on good and bad settings.
#include <gtest/gtest.h>

#include "practice/clerk/Workday.h"
#include "settings/frmSettingsIds.h"
#include "tests/e2e/Workplace.h"

namespace tallyrun::testing {
namespace {

TEST(StartUpTest, MendsItsSettingsInTheDialogAndGoesOn) {
  const Workplace place(kShipped, "B\xFCro, 1. Stock");
  // Of a key that stands twice the last counts; lines of other programs are passed over.
  const std::string settings = place.Settings();
  place.Write("program\\Tallyrun.ini", "Broker ID : 410275\r\nColour : blue\r\n" +
                                           ("Broker ID : 12.345" + settings.substr(18)));
  Workday day(place.Folder());
  EXPECT_EQ(day.Answer("OK"), Notice("Wrong Broker ID",
                                     "Invalid character in Broker ID: '.'.\r\n"
                                     "Enter the 6-digit numeric Broker ID."));
  const OpenWindow dialog = day.Clerk().Window("Tallyrun v1.0 : Settings");
  EXPECT_EQ(dialog.Text(frmSettingsIds::kTxtBrokerID), "12.345");
  dialog.Enter(frmSettingsIds::kTxtBrokerID, " 410275 ");
  dialog.Click(frmSettingsIds::kBtnSave);
  EXPECT_EQ(day.Answer("OK"), Notice("Saved successfully.", "Settings saved successfully."));
  EXPECT_EQ(place.Read("program\\Tallyrun.ini"), settings);
  PostMessageA(dialog.Handle(), WM_CLOSE, 0, 0);
  day.AwaitCaption(day.Main(), "Tallyrun v1.0 : Pay In");
  day.Exit();
}

}  // namespace
}  // namespace tallyrun::testing
