// The settings dialog as a real window.
#include <gtest/gtest.h>

#include "settings/frmSettings.h"
#include "settings/frmSettingsIds.h"
#include "tests/support/FormDriver.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"
#include "ui/MessageLoop.h"

namespace tallyrun::testing {
namespace {

class frmSettingsTest : public ::testing::Test {
 protected:
  frmSettingsTest() {
    platform.programFolder = folder.Path().substr(0, folder.Path().size() - 1);
    folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r");
    folder.Write("ISIN.txt", "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r");
    Settings = {"123456", "1201090000000001", "1201090000000000", folder.Path()};
  }

  TempFolder folder;
  RecordingPlatform platform;
  frmSettings form;
};

TEST_F(frmSettingsTest, SaveTrimsTheBoxesAlsoWhenAValueIsRefused) {
  form.Show();
  form.txtBrokerID.SetText("  654321 ");
  form.txtClearingBOID.SetText(" 12 ");
  ClickOn(form.btnSave);
  EXPECT_EQ(platform.TakeMessage().title, "Wrong Clearing BOID");
  EXPECT_EQ(form.txtBrokerID.Text(), "654321");
  EXPECT_EQ(form.txtClearingBOID.Text(), "12");
  EXPECT_EQ(Settings.brokerId, "123456");

  form.txtClearingBOID.SetText(Settings.clearingBoid);
  ClickOn(form.btnSave);
  EXPECT_EQ(platform.TakeMessage().text, "Settings saved successfully.");
  EXPECT_EQ(Settings.brokerId, "654321");
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(frmSettingsTest, BrowseTakesTheFolderAndCancelKeepsTheTypedOne) {
  form.Show();
  form.txtBackupPath.SetText(" C:\\typed ");
  ClickOn(form.btnSetBackupLocation);
  ASSERT_EQ(platform.folderRequests.size(), 1u);
  EXPECT_EQ(platform.folderRequests[0].prompt, "Select a backup location.");
  EXPECT_EQ(platform.folderRequests[0].startFolder, "C:\\typed");
  EXPECT_EQ(form.txtBackupPath.Text(), " C:\\typed ");

  platform.folders.push_back("C:\\chosen");
  ClickOn(form.btnSetBackupLocation);
  EXPECT_EQ(form.txtBackupPath.Text(), "C:\\chosen");
}

TEST_F(frmSettingsTest, OpensAtStartUpWithNoOwnerAndReturnsWhenClosed) {
  // Posted ahead of the dialog's own loop, to the thread, as no window exists yet.
  const auto closeWhenShown = [](HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND dialog = FindWindowA(frmSettingsIds::kWindowClass, nullptr);
    if (dialog == nullptr || !IsWindowVisible(dialog)) return;
    KillTimer(nullptr, timer);
    PostMessageA(dialog, WM_CLOSE, 0, 0);
  };
  SetTimer(nullptr, 0, USER_TIMER_MINIMUM, closeWhenShown);
  OpenSettingsDialog();
  EXPECT_EQ(FindWindowA(frmSettingsIds::kWindowClass, nullptr), nullptr);
}

TEST_F(frmSettingsTest, EveryControlIsInsideTheWindowAtEveryDpi) {
  form.Show();
  for (const int dpi : {96, 144, 192}) {
    const RECT suggested = {0, 0, 1500, 900};
    SendMessageA(form.Handle(), WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
                 reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ(form.Dpi(), dpi);
    RECT client = {};
    GetClientRect(form.Handle(), &client);
    // As large as its contents, whatever was suggested; the title bar is still the screen's own.
    EXPECT_EQ(client.right, form.MinimumClientSize().cx);
    for (const Control* control : form.Controls()) {
      const PixelRect bounds = control->Bounds();
      EXPECT_GE(bounds.x, form.Scale(7)) << control->Id() << " at " << dpi;
      EXPECT_LE(bounds.x + bounds.width, client.right) << control->Id() << " at " << dpi;
      EXPECT_LE(bounds.y + bounds.height, client.bottom) << control->Id() << " at " << dpi;
    }
  }
}

}  // namespace
}  // namespace tallyrun::testing
