// How the real program starts on good and bad settings.
#include <cstring>
#include <gtest/gtest.h>

#include "app/frmMainIds.h"
#include "practice/clerk/Waiting.h"
#include "settings/frmSettingsIds.h"
#include "tests/e2e/Steps.h"

namespace tallyrun::testing {
namespace {

TEST(StartUpTest, EndsWithoutItsSettingsFile) {
  const Workplace place;
  DeleteFileA(place.File("program\\Tallyrun.ini").c_str());
  ClerkDriver clerk(place.Program());
  EXPECT_EQ(clerk.Answer("OK"),
            Notice("INI file not found.", "Tallyrun initialization file not found."));
  clerk.WaitForEnd();
}

TEST(StartUpTest, MendsItsSettingsInTheDialogAndGoesOn) {
  const Workplace place;
  // Of a key that stands twice the last counts; lines of other programs are passed over.
  place.Write("program\\Tallyrun.ini",
              "Broker ID : 410275\r\nColour : blue\r\nBroker ID : 12.345\r\n" +
                  place.Settings().substr(std::strlen("Broker ID : 410275\r\n")));
  ClerkDriver clerk(place.Program());
  EXPECT_EQ(clerk.Answer("OK"), Notice("Wrong Broker ID",
                                       "Invalid character in Broker ID: '.'.\r\n"
                                       "Enter the 6-digit numeric Broker ID."));
  const OpenWindow dialog = clerk.Window("Tallyrun v1.0 : Settings");
  EXPECT_EQ(dialog.Text(frmSettingsIds::kTxtBrokerID), "12.345");
  dialog.Enter(frmSettingsIds::kTxtBrokerID, " 410275 ");
  dialog.Click(frmSettingsIds::kBtnSave);
  EXPECT_EQ(clerk.Answer("OK"), Notice("Saved successfully.", "Settings saved successfully."));
  EXPECT_EQ(place.Read("program\\Tallyrun.ini"), place.Settings());
  PostMessageA(dialog.Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(MainWindow(clerk).Caption(), "Tallyrun v1.0 : Pay In");
  Exit(clerk);
}

}  // namespace
}  // namespace tallyrun::testing
