// What saving the settings dialog does with the typed values, in every outcome.
#include <gmock/gmock.h>

#include "core/Lists.h"
#include "settings/SettingsEntry.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

constexpr char kBoid[] = "1201090000000001";
constexpr char kFormat[] = "1201090000000000";
const Message kSaved = {"Settings saved successfully.", "Saved successfully.",
                        MessageIcon::Information};

class SettingsEntryTest : public ::testing::Test {
 protected:
  SettingsEntryTest() {
    platform.programFolder = WithoutBackslash(program.Path());
    work.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~1201~First~C1\r");
    work.Write("ISIN.txt", "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n1~IN1~One~S~1\r");
    Settings = kFormer;
    BoList = RecordList();
    IsinList = RecordList();
  }

  static std::string WithoutBackslash(const std::string& path) {
    return path.substr(0, path.size() - 1);
  }

  const BrokerSettings kFormer = {"000000", "0", "0", "C:\\former\\"};
  TempFolder program;
  TempFolder work;
  RecordingPlatform platform;
};

TEST_F(SettingsEntryTest, GoodValuesAreStoredWrittenAndLoadTheLists) {
  // With and without the last backslash, the location is held with one.
  for (const std::string& location : {work.Path(), WithoutBackslash(work.Path())}) {
    Settings = kFormer;
    BoList = RecordList();
    EXPECT_TRUE(SaveEntry({"123456", kBoid, kFormat, location}));
    EXPECT_EQ(Settings, (BrokerSettings{"123456", kBoid, kFormat, work.Path()}));
    EXPECT_EQ(platform.TakeMessage(), kSaved);
    EXPECT_EQ(program.Read("Tallyrun.ini"), SettingsText(Settings));
    EXPECT_EQ(BoList.Count(), 2);
    EXPECT_EQ(IsinList.Count(), 2);
  }
}

TEST_F(SettingsEntryTest, TheFirstBadValueIsRefusedAndNothingChanges) {
  const std::string missing = work / "missing";
  const struct {
    BrokerSettings entry;
    const char* title;
  } cases[] = {
      {{"12345", "1", "1", missing}, "Wrong Broker ID"},
      {{"123456", "", "1", missing}, "Wrong Clearing BOID"},
      {{"123456", kBoid, "120109000000000-", missing}, "Wrong BOID Format"},
      {{"123456", kBoid, kFormat, missing}, "Invalid Backup Location"},
      {{"123456", kBoid, kFormat, ""}, "Invalid Backup Location"},
  };
  for (const auto& c : cases) {
    EXPECT_FALSE(SaveEntry(c.entry));
    EXPECT_EQ(platform.TakeMessage().title, c.title);
    EXPECT_EQ(Settings, kFormer);
    EXPECT_EQ(program.EntryCount(), 0);
    EXPECT_EQ(BoList.Count(), 0);
  }
}

TEST_F(SettingsEntryTest, AFileThatCannotBeWrittenStillLoadsTheListsOfTheNewLocation) {
  platform.programFolder = WithoutBackslash(program / "missing\\");
  EXPECT_TRUE(SaveEntry({"123456", kBoid, kFormat, work.Path()}));
  EXPECT_EQ(platform.TakeMessage().title, kApplicationTitle);
  EXPECT_EQ(Settings.backupLocation, work.Path());
  EXPECT_EQ(BoList.Count(), 2);
}

}  // namespace
}  // namespace tallyrun::testing
