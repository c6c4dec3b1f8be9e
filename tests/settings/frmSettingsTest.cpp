// The settings dialog as a real window: what saving does in every outcome, and the folder picker.
#include "settings/frmSettings.h"
#include "settings/frmSettingsIds.h"
#include "tests/support/FormDriver.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

using namespace frmSettingsIds;

constexpr char kBoid[] = "1201090000000001";
constexpr char kFormat[] = "1201090000000000";

struct frmSettingsTest : ProgramFixture {
  frmSettingsTest() {
    platform.programFolder = program / ".";
    folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~1201~First~C1\r");
    Settings = kFormer;
    form.Show();
  }

  Control& On(int id) { return ControlOf(form, id); }
  void Save(const BrokerSettings& typed) {
    On(kTxtBrokerID).SetText(typed.brokerId);
    On(kTxtClearingBOID).SetText(typed.clearingBoid);
    On(kTxtDefaultBOIDFormat).SetText(typed.boidFormat);
    On(kTxtBackupPath).SetText(typed.backupLocation);
    ClickOn(On(kBtnSave));
  }

  const BrokerSettings kFormer = {"000000", "1", "2", "C:\\former\\"};
  TempFolder program;
  frmSettings form;
};

TEST_F(frmSettingsTest, OpensWithTheSettingsAsTheyStandAndAPlaceForEveryControlAtEveryDpi) {
  EXPECT_EQ(form.Caption(), "Tallyrun v1.0 : Settings");
  const std::tuple<int, int, std::string, std::string> rows[] = {
      {kLblBrokerID, kTxtBrokerID, "Broker ID :", kFormer.brokerId},
      {kLblClearingBOID, kTxtClearingBOID, "Clearing BOID :", kFormer.clearingBoid},
      {kLblDefaultBOIDFormat, kTxtDefaultBOIDFormat, "BOID Format :", kFormer.boidFormat},
      {kLblBackupPath, kTxtBackupPath, "Backup Location :", kFormer.backupLocation},
  };
  for (const auto& [label, box, caption, value] : rows) {
    EXPECT_EQ(On(label).Text(), caption);
    EXPECT_EQ(On(box).Text(), value);
    EXPECT_EQ(On(label).Bounds().y, On(box).Bounds().y);
  }
  ExpectControlsApart(form);
}

TEST_F(frmSettingsTest, GoodValuesAreStoredWrittenAndLoadTheLists) {
  // Without its last backslash, as the folder picker gives it, the location is held with one.
  std::string location = folder.Path();
  location.pop_back();
  Save({" 123456 ", kBoid, kFormat, "  " + location});
  EXPECT_EQ(Settings, (BrokerSettings{"123456", kBoid, kFormat, folder.Path()}));
  EXPECT_EQ(program.Read("Tallyrun.ini"), SettingsText(Settings));
  EXPECT_EQ(BoList.Count(), 2);
  // The list that is missing is told after the confirmation.
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0], (Message{"Settings saved successfully.", "Saved successfully.",
                                           MessageIcon::Information}));
  EXPECT_EQ(platform.messages[1].title, "Error loading list of ISINs.");
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(frmSettingsTest, TheFirstBadValueIsRefusedAndNothingChangesButTheBlanks) {
  const std::pair<BrokerSettings, const char*> cases[] = {
      {{" 12345 ", "1", "1", ""}, "Wrong Broker ID"},
      {{"123456", "", "1", ""}, "Wrong Clearing BOID"},
      {{"123456", kBoid, "120109000000000-", ""}, "Wrong BOID Format"},
      {{"123456", kBoid, kFormat, ""}, "Invalid Backup Location"},
      {{"123456", kBoid, kFormat, folder / "missing"}, "Invalid Backup Location"}};
  for (const auto& [typed, title] : cases) {
    Save(typed);
    EXPECT_EQ(platform.TakeMessage().title, title);
    EXPECT_EQ(On(kTxtBrokerID).Text(), Trim(typed.brokerId));
    EXPECT_EQ(Settings, kFormer);
    EXPECT_EQ(program.EntryCount(), 0);
  }
}

TEST_F(frmSettingsTest, BrowseTakesTheFolderAndCancelKeepsTheTypedOne) {
  On(kTxtBackupPath).SetText(" C:\\typed ");
  platform.folders = {"", "C:\\chosen"};
  for (const char* left : {" C:\\typed ", "C:\\chosen"}) {
    ClickOn(On(kBtnSetBackupLocation));
    EXPECT_EQ(On(kTxtBackupPath).Text(), left);
  }
  EXPECT_EQ(platform.folderRequests[0].prompt, "Select a backup location.");
  EXPECT_EQ(platform.folderRequests[0].startFolder, "C:\\typed");
}

}  // namespace
}  // namespace tallyrun::testing
