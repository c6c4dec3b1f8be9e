#include <functional>
#include <gmock/gmock.h>

#include "core/Lists.h"
#include "core/RuntimeError.h"
#include "core/Settings.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ProgramEnded;
using testing::RecordingPlatform;
using testing::TempFolder;

constexpr char kBoid[] = "1201090000000001";
constexpr char kFormat[] = "1201090000000000";

class SettingsTest : public ::testing::Test {
 protected:
  SettingsTest() {
    platform.programFolder = folder.Path().substr(0, folder.Path().size() - 1);
    folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~1201~First~C1\r");
    folder.Write("ISIN.txt", "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r");
    Settings = {"old", "old", "old", "old"};
    BoList = RecordList();
    IsinList = RecordList();
    dialog = [] {};
    dialogsOpened = 0;
  }

  // The settings file with these values; the working folder is the program's unless given.
  void WriteFile(const std::string& broker, const std::string& clearing, const std::string& format,
                 const std::string& location) {
    folder.Write("Tallyrun.ini", "Broker ID : " + broker + "\r\nClearing BOID : " + clearing +
                                     "\r\nDefault BOID Format : " + format +
                                     "\r\nBackup Location : " + location);
  }

  static void OpenDialog() {
    ++dialogsOpened;
    dialog();
  }

  std::vector<std::string> TitlesShown() {
    std::vector<std::string> titles;
    for (const Message& message : platform.messages) titles.push_back(message.title);
    return titles;
  }

  TempFolder folder;
  RecordingPlatform platform;
  // What the clerk does in the settings dialog.
  static std::function<void()> dialog;
  static int dialogsOpened;
};

std::function<void()> SettingsTest::dialog;
int SettingsTest::dialogsOpened = 0;

TEST_F(SettingsTest, GoodFileIsLoadedWithBothLists) {
  WriteFile("123456", kBoid, kFormat, platform.programFolder);
  LoadSettings(OpenDialog);
  EXPECT_EQ(Settings, (BrokerSettings{"123456", kBoid, kFormat, folder.Path()}));
  EXPECT_EQ(BoList.Count(), 2);
  EXPECT_EQ(IsinList.Count(), 1);
  EXPECT_EQ(dialogsOpened, 0);
  EXPECT_THAT(platform.messages, IsEmpty());
}

TEST_F(SettingsTest, MissingFileEndsTheProgram) {
  EXPECT_THROW(LoadSettings(OpenDialog), ProgramEnded);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Tallyrun initialization file not found.",
                                             "INI file not found.", MessageIcon::Critical}));
  EXPECT_EQ(Settings, BrokerSettings{});
}

TEST_F(SettingsTest, KeyWithoutValueIsShownAndLeavesTheRest) {
  folder.Write("Tallyrun.ini", "Broker ID : 123456\r\nClearing BOID\r\nDefault BOID Format : 1");
  LoadSettings(OpenDialog);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Subscript out of range"}));
  EXPECT_EQ(Settings, (BrokerSettings{"123456", "", "", ""}));
  EXPECT_EQ(BoList.Count(), 0);
  EXPECT_EQ(dialogsOpened, 0);
}

TEST_F(SettingsTest, EveryBadValueOpensTheDialogOnce) {
  WriteFile("12345", "x", "", folder / "none");
  dialog = [this] {
    if (dialogsOpened == 1) Settings.brokerId = "123456";
    if (dialogsOpened == 2) Settings.clearingBoid = kBoid;
    if (dialogsOpened == 3) Settings.boidFormat = kFormat;
    if (dialogsOpened == 4) Settings.backupLocation = folder.Path();
  };
  LoadSettings(OpenDialog);
  EXPECT_EQ(dialogsOpened, 4);
  EXPECT_THAT(TitlesShown(), ElementsAre("Wrong Broker ID", "Wrong Clearing BOID",
                                         "Wrong BOID Format", "Invalid Backup Location"));
  EXPECT_EQ(BoList.Count(), 2);
}

TEST_F(SettingsTest, OneDialogThatMendsAllIsShownOnce) {
  WriteFile("12345", "x", "", folder / "none");
  dialog = [this] { Settings = {"123456", kBoid, kFormat, folder.Path()}; };
  LoadSettings(OpenDialog);
  EXPECT_EQ(dialogsOpened, 1);
  EXPECT_EQ(platform.TakeMessage().text, "Broker ID should be a 6-digit number.");
}

TEST_F(SettingsTest, ValueThatStaysBadEndsTheProgram) {
  WriteFile("123456", kBoid, "120109000000000", folder.Path());
  EXPECT_THROW(LoadSettings(OpenDialog), ProgramEnded);
  EXPECT_EQ(dialogsOpened, 1);
  const Message refusal{"BOID Format should be a 16-digit number.", "Wrong BOID Format",
                        MessageIcon::Critical};
  EXPECT_THAT(platform.messages, ElementsAre(refusal, refusal));
}

TEST_F(SettingsTest, FolderThatStaysMissingEndsTheProgram) {
  WriteFile("123456", kBoid, kFormat, folder / "none");
  EXPECT_THROW(LoadSettings(OpenDialog), ProgramEnded);
  EXPECT_THAT(platform.messages,
              ElementsAre(Message{"Provide the Backup Location properly.",
                                  "Invalid Backup Location", MessageIcon::Critical},
                          Message{"Backup Location was not provided properly.",
                                  "Invalid Backup Location", MessageIcon::Critical}));
  EXPECT_EQ(BoList.Count(), 0);
}

TEST_F(SettingsTest, LinesAreReadByTheirExactKeys) {
  const struct {
    const char* text;
    BrokerSettings settings;
  } cases[] = {
      {"", {}},
      {"broker id : 1\r\nBroker ID: 2\r\n Broker ID : 3\r\nBOID Format : 4\r\nBroker ID", {}},
      {"Broker ID : 1\r\n\r\nunknown\r\nBroker ID : 2", {"2", "", "", ""}},
      {"Broker ID :  12 : 34", {" 12", "", "", ""}},
      {"Broker ID : 1\nClearing BOID : 2", {"1\nClearing BOID", "", "", ""}},
      {"Backup Location : C:\\Data", {"", "", "", "C:\\Data\\"}},
      {"Backup Location : C:\\Data\\", {"", "", "", "C:\\Data\\"}},
      {"Backup Location : ", {"", "", "", "\\"}},
  };
  for (const auto& c : cases) {
    BrokerSettings settings;
    try {
      ReadSettingsText(c.text, settings);
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Kind(), ErrorKind::SubscriptOutOfRange);
      EXPECT_TRUE(std::string_view(c.text).ends_with("\r\nBroker ID")) << c.text;
    }
    EXPECT_EQ(settings, c.settings) << c.text;
  }
}

TEST_F(SettingsTest, SavingWritesFourLinesAndConfirms) {
  Settings = {"123456", kBoid, kFormat, "C:\\Data\\"};
  SaveSettings();
  EXPECT_EQ(folder.Read("Tallyrun.ini"),
            "Broker ID : 123456\r\nClearing BOID : 1201090000000001\r\n"
            "Default BOID Format : 1201090000000000\r\nBackup Location : C:\\Data\\");
  EXPECT_EQ(platform.TakeMessage(), (Message{"Settings saved successfully.", "Saved successfully.",
                                             MessageIcon::Information}));
}

TEST_F(SettingsTest, FailedSaveShowsTheErrorAloneAndKeepsTheSettings) {
  platform.programFolder += "\\none";
  SaveSettings();
  EXPECT_EQ(platform.TakeMessage(), (Message{"Path not found"}));
  EXPECT_EQ(Settings.brokerId, "old");
}

TEST_F(SettingsTest, NumericFieldIsRefusedForItsFirstFault) {
  const std::string shape = "Broker ID should be a 6-digit number.";
  const auto invalid = [](char sign) {
    return std::string("Invalid character in Broker ID: '") + sign +
           "'.\r\nEnter the 6-digit numeric Broker ID.";
  };
  const struct {
    const char* value;
    std::string text;
  } cases[] = {
      {"", "Broker ID cannot be blank."},
      {"12345", shape},
      {"1234567", shape},
      {"12345a", shape},
      {"      ", shape},
      {"-12345", invalid('-')},
      {"12345-", invalid('-')},
      {"+12345", invalid('+')},
      {"12.345", invalid('.')},
      {"-1.345", invalid('-')},
      {"+1.345", invalid('+')},
  };
  for (const auto& c : cases) {
    EXPECT_FALSE(ValidateNumericField(c.value, 6, "Broker ID")) << c.value;
    EXPECT_EQ(platform.TakeMessage(), (Message{c.text, "Wrong Broker ID", MessageIcon::Critical}));
  }
  for (const char* value : {"123456", " 12345", "12345 ", "12,345", "1234e5"}) {
    EXPECT_TRUE(ValidateNumericField(value, 6, "Broker ID")) << value;
  }
  EXPECT_THAT(platform.messages, IsEmpty());
}

}  // namespace
}  // namespace tallyrun
