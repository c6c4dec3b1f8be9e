// The settings dialog as a real window.
#include "settings/frmSettings.h"
#include "tests/support/FormDriver.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

struct frmSettingsTest : ProgramFixture {
  frmSettingsTest() {
    platform.programFolder = folder.Path().substr(0, folder.Path().size() - 1);
    folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r");
    folder.Write("ISIN.txt", "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r");
    form.Show();
  }

  frmSettings form;
};

TEST_F(frmSettingsTest, SaveTrimsTheBoxesAlsoWhenAValueIsRefused) {
  form.txtBrokerID.SetText("  654321 ");
  form.txtClearingBOID.SetText(" 12 ");
  ClickOn(form.btnSave);
  EXPECT_EQ(platform.TakeMessage().title, "Wrong Clearing BOID");
  EXPECT_EQ(form.txtBrokerID.Text(), "654321");
  EXPECT_EQ(Settings.brokerId, "123456");

  form.txtClearingBOID.SetText(Settings.clearingBoid);
  ClickOn(form.btnSave);
  EXPECT_EQ(platform.TakeMessage().text, "Settings saved successfully.");
  EXPECT_EQ(Settings.brokerId, "654321");
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(frmSettingsTest, EveryControlHasItsPlaceAtEveryDpi) { ExpectControlsApart(form); }

TEST_F(frmSettingsTest, BrowseTakesTheFolderAndCancelKeepsTheTypedOne) {
  form.txtBackupPath.SetText(" C:\\typed ");
  ClickOn(form.btnSetBackupLocation);
  ASSERT_EQ(platform.folderRequests.size(), 1u);
  EXPECT_EQ(platform.folderRequests[0].startFolder, "C:\\typed");
  EXPECT_EQ(form.txtBackupPath.Text(), " C:\\typed ");

  platform.folders.push_back("C:\\chosen");
  ClickOn(form.btnSetBackupLocation);
  EXPECT_EQ(form.txtBackupPath.Text(), "C:\\chosen");
}

}  // namespace
}  // namespace tallyrun::testing
