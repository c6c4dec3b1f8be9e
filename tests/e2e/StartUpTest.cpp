// How the real program starts on good and bad settings.
#include <cstring>
#include <gtest/gtest.h>

#include "app/frmMainIds.h"
#include "practice/clerk/Waiting.h"
#include "settings/frmSettingsIds.h"
#include "tests/e2e/Steps.h"

namespace tallyrun::testing {
namespace {

constexpr char kSettingsTitle[] = "Tallyrun v1.0 : Settings";

void CloseWindow(const OpenWindow& window) { PostMessageA(window.Handle(), WM_CLOSE, 0, 0); }

TEST(StartUpTest, EndsWithoutItsSettingsFile) {
  const Workplace place;
  place.Remove("program\\Tallyrun.ini");
  ClerkDriver clerk(place.Program());
  EXPECT_EQ(clerk.Answer("OK"),
            Notice("INI file not found.", "Tallyrun initialization file not found."));
  clerk.WaitForEnd();
}

TEST(StartUpTest, EndsWhenABadValueIsNotMended) {
  const Workplace place;
  std::string settings = place.Settings();
  settings.replace(settings.find("410275"), 6, "12345");
  place.Write("program\\Tallyrun.ini", settings);
  ClerkDriver clerk(place.Program());
  const Box wrong = Notice("Wrong Broker ID", "Broker ID should be a 6-digit number.");
  EXPECT_EQ(clerk.Answer("OK"), wrong);
  CloseWindow(clerk.Window(kSettingsTitle));
  EXPECT_EQ(clerk.Answer("OK"), wrong);
  clerk.WaitForEnd();
  EXPECT_EQ(place.Read("program\\Tallyrun.ini"), settings);
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
  const OpenWindow dialog = clerk.Window(kSettingsTitle);
  EXPECT_EQ(dialog.Text(frmSettingsIds::kTxtBrokerID), "12.345");
  dialog.Enter(frmSettingsIds::kTxtBrokerID, " 410275 ");
  dialog.Click(frmSettingsIds::kBtnSave);
  EXPECT_EQ(clerk.Answer("OK"), Notice("Saved successfully.", "Settings saved successfully."));
  EXPECT_EQ(place.Read("program\\Tallyrun.ini"), place.Settings());
  CloseWindow(dialog);
  EXPECT_EQ(MainWindow(clerk).Caption(), "Tallyrun v1.0 : Pay In");
  Exit(clerk);
}

TEST(StartUpTest, ShowsTheWindowOverListsThatCannotBeRead) {
  const Workplace place;
  place.Remove("work\\BO.txt");
  ClerkDriver clerk(place.Program());
  const Box missing = clerk.Answer("OK");
  EXPECT_NE(missing.text.find("Tried to read file: " + place.File("work\\BO.txt")),
            std::string::npos)
      << missing.text;
  MainWindow(clerk);
  Exit(clerk);
}

}  // namespace
}  // namespace tallyrun::testing
