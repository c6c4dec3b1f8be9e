#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

constexpr char kBoid[] = "1201090000000001";
constexpr char kFormat[] = "1201090000000000";

struct SettingsTest : ProgramFixture {
  SettingsTest() {
    platform.programFolder = folder.Path().substr(0, folder.Path().size() - 1);
    folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~1201~First~C1\r");
    folder.Write("ISIN.txt", "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r");
    dialog = [] {};
    dialogsOpened = 0;
  }

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
  // What the clerk does in the settings dialog.
  static inline std::function<void()> dialog;
  static inline int dialogsOpened;
};

TEST_F(SettingsTest, AMissingFileEndsTheProgramAndAKeyWithoutValueIsShown) {
  EXPECT_THROW(LoadSettings(OpenDialog), ProgramEnded);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Tallyrun initialization file not found.",
                                             "INI file not found.", MessageIcon::Critical}));
  folder.Write("Tallyrun.ini", "Broker ID : 123456\r\nClearing BOID\r\nDefault BOID Format : 1");
  LoadSettings(OpenDialog);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Subscript out of range"}));
  EXPECT_EQ(Settings, (BrokerSettings{"123456", "", "", ""}));
  EXPECT_EQ(dialogsOpened, 0);
}

TEST_F(SettingsTest, EveryBadValueOpensTheDialogOnceAndMustBeMended) {
  WriteFile("12345", "x", "", folder / "none");
  dialog = [this] {
    if (dialogsOpened == 1) Settings.brokerId = "123456";
    if (dialogsOpened == 2) Settings.clearingBoid = kBoid;
    if (dialogsOpened == 3) Settings.boidFormat = kFormat;
    if (dialogsOpened == 4) Settings.backupLocation = folder.Path();
  };
  LoadSettings(OpenDialog);
  EXPECT_EQ(Settings, (BrokerSettings{"123456", kBoid, kFormat, folder.Path()}));
  EXPECT_EQ(BoList.Count(), 2);
  EXPECT_EQ(IsinList.Count(), 1);
  WriteFile("123456", kBoid, "120109000000000", folder.Path());
  EXPECT_THROW(LoadSettings(OpenDialog), ProgramEnded);
  WriteFile("123456", kBoid, kFormat, folder / "none");
  EXPECT_THROW(LoadSettings(OpenDialog), ProgramEnded);
  EXPECT_EQ(dialogsOpened, 6);
  const char* titles[] = {"Wrong Broker ID", "Wrong Clearing BOID", "Wrong BOID Format",
                          "Invalid Backup Location"};
  for (std::size_t box = 0; box < 4; ++box) EXPECT_EQ(platform.messages[box].title, titles[box]);
  EXPECT_EQ(platform.messages[6],
            (Message{"Provide the Backup Location properly.", titles[3], MessageIcon::Critical}));
  EXPECT_EQ(platform.messages[7], (Message{"Backup Location was not provided properly.", titles[3],
                                           MessageIcon::Critical}));
}

TEST_F(SettingsTest, LinesAreReadByTheirExactKeys) {
  const std::pair<const char*, BrokerSettings> cases[] = {
      {"broker id : 1\r\nBroker ID: 2\r\n Broker ID : 3\r\nBOID Format : 4", {}},
      {"Broker ID : 1\r\n\r\nunknown\r\nBroker ID :  12 : 34", {" 12", "", "", ""}},
      {"Broker ID : 1\nClearing BOID : 2", {"1\nClearing BOID", "", "", ""}},
      {"Backup Location : C:\\Data", {"", "", "", "C:\\Data\\"}},
      {"Backup Location : ", {"", "", "", "\\"}}};
  for (const auto& [text, settings] : cases) {
    BrokerSettings read;
    ReadSettingsText(text, read);
    EXPECT_EQ(read, settings) << text;
  }
}

TEST_F(SettingsTest, ANumericFieldIsRefusedForItsFirstFault) {
  const std::string invalid = "Invalid character in Broker ID: '";
  const std::pair<const char*, std::string> cases[] = {
      {"", "Broker ID cannot be blank."},
      {"12345a", "Broker ID should be a 6-digit number."},
      {"-1.345", invalid + "-'.\r\n"},
      {"12345-", invalid + "-'.\r\n"},
      {"12.345", invalid + ".'.\r\n"}};
  for (auto [value, text] : cases) {
    EXPECT_FALSE(ValidateNumericField(value, 6, "Broker ID")) << value;
    if (text.ends_with('\n')) text += "Enter the 6-digit numeric Broker ID.";
    EXPECT_EQ(platform.TakeMessage(), (Message{text, "Wrong Broker ID", MessageIcon::Critical}));
  }
  for (const char* value : {"123456", " 12345", "12345 ", "12,345", "1234e5"}) {
    EXPECT_TRUE(ValidateNumericField(value, 6, "Broker ID")) << value;
  }
}

}  // namespace
}  // namespace tallyrun::testing
