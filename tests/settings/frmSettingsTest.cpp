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

TEST_F(frmSettingsTest, OpensWithTheSettingsAsTheyStand) {
  EXPECT_EQ(form.Caption(), "Tallyrun v1.0 : Settings");
  const std::tuple<const Label&, const TextBox&, std::string, std::string> rows[] = {
      {form.lblBrokerID, form.txtBrokerID, "Broker ID :", "123456"},
      {form.lblClearingBOID, form.txtClearingBOID, "Clearing BOID :", "1201950000009999"},
      {form.lblDefaultBOIDFormat, form.txtDefaultBOIDFormat, "BOID Format :", "1201950000000000"},
      {form.lblBackupPath, form.txtBackupPath, "Backup Location :", folder.Path()},
  };
  int above = 0;
  for (const auto& [label, box, caption, value] : rows) {
    EXPECT_EQ(label.Text(), caption);
    EXPECT_EQ(box.Text(), value);
    EXPECT_GT(box.Bounds().y, above);
    EXPECT_EQ(label.Bounds().y, above = box.Bounds().y);
  }
}

TEST_F(frmSettingsTest, SaveTrimsTheBoxesAlsoWhenAValueIsRefused) {
  form.txtBrokerID.SetText("  654321 ");
  form.txtClearingBOID.SetText(" 12 ");
  ClickOn(form.btnSave);
  EXPECT_EQ(platform.TakeMessage().title, "Wrong Clearing BOID");
  EXPECT_EQ(form.txtBrokerID.Text(), "654321");
  EXPECT_EQ(Settings.brokerId, "123456");

  form.txtClearingBOID.SetText(Settings.clearingBoid);
  ClickOn(form.btnSave);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Settings saved successfully.", "Saved successfully.",
                                             MessageIcon::Information}));
  EXPECT_EQ(Settings.brokerId, "654321");
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(frmSettingsTest, EveryControlHasItsPlaceAtEveryDpi) { ExpectControlsApart(form); }

TEST_F(frmSettingsTest, BrowseTakesTheFolderAndCancelKeepsTheTypedOne) {
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

}  // namespace
}  // namespace tallyrun::testing
