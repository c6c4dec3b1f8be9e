// What saving the settings dialog does with the typed values, in every outcome.
#include "settings/SettingsEntry.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

constexpr char kBoid[] = "1201090000000001";
constexpr char kFormat[] = "1201090000000000";

struct SettingsEntryTest : ProgramFixture {
  SettingsEntryTest() {
    platform.programFolder = program / "";
    platform.programFolder.pop_back();
    folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~1201~First~C1\r");
    Settings = kFormer;
  }

  const BrokerSettings kFormer = {"000000", "0", "0", "C:\\former\\"};
  TempFolder program;
};

TEST_F(SettingsEntryTest, GoodValuesAreStoredWrittenAndLoadTheLists) {
  // Without its last backslash, as the folder picker gives it, the location is held with one.
  std::string location = folder.Path();
  location.pop_back();
  EXPECT_TRUE(SaveEntry(TrimmedEntry({" 123456 ", kBoid, kFormat, "  " + location})));
  EXPECT_EQ(Settings, (BrokerSettings{"123456", kBoid, kFormat, folder.Path()}));
  EXPECT_EQ(program.Read("Tallyrun.ini"), SettingsText(Settings));
  EXPECT_EQ(BoList.Count(), 2);
  // The list that is missing is told after the confirmation.
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].title, "Saved successfully.");
  EXPECT_EQ(platform.messages[1].title, "Error loading list of ISINs.");
  // A file that cannot be written still loads the lists of the new location.
  platform.programFolder += "\\missing";
  BoList = {};
  EXPECT_TRUE(SaveEntry({"123456", kBoid, kFormat, folder.Path()}));
  EXPECT_EQ(platform.messages[2].text, "Path not found");
  EXPECT_EQ(BoList.Count(), 2);
}

TEST_F(SettingsEntryTest, TheFirstBadValueIsRefusedAndNothingChanges) {
  const std::pair<BrokerSettings, const char*> cases[] = {
      {{"12345", "1", "1", ""}, "Wrong Broker ID"},
      {{"123456", "", "1", ""}, "Wrong Clearing BOID"},
      {{"123456", kBoid, "120109000000000-", ""}, "Wrong BOID Format"},
      {{"123456", kBoid, kFormat, ""}, "Invalid Backup Location"},
      {{"123456", kBoid, kFormat, folder / "missing"}, "Invalid Backup Location"}};
  for (const auto& [entry, title] : cases) {
    EXPECT_FALSE(SaveEntry(entry));
    EXPECT_EQ(platform.TakeMessage().title, title);
    EXPECT_EQ(Settings, kFormer);
    EXPECT_EQ(program.EntryCount(), 0);
  }
}

}  // namespace
}  // namespace tallyrun::testing
