#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "core/Settings.h"
#include "lists/ListBackups.h"
#include "lists/ListKind.h"
#include "tests/support/GridText.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {
namespace {

using Entries = std::vector<std::string>;

class ListBackupsTest : public ::testing::Test {
 protected:
  ListBackupsTest() { Settings.backupLocation = folder_.Path(); }
  ~ListBackupsTest() override { Settings = {}; }

  RecordingPlatform platform_;
  TempFolder folder_;
};

TEST_F(ListBackupsTest, ListsTheStampsAndTheMainFileOfOneKind) {
  EXPECT_EQ(ListBackups(kBoKind), Entries{});
  for (const char* name : {"BO.txt", "2010-05-06_14-30-05_BO.txt", "2010-05-07_08-00-00_ISIN.txt",
                           "2009-12-31_23-59-59_BO.txt", "05-Jan-2010_PI_123456.txt"}) {
    folder_.Write(name, "x");
  }
  EXPECT_EQ(ListBackups(kBoKind),
            (Entries{"2009-12-31_23-59-59", "2010-05-06_14-30-05", "BO.txt"}));
  EXPECT_EQ(ListBackups(kIsinKind), Entries{"2010-05-07_08-00-00"});
}

TEST_F(ListBackupsTest, AnEntryLeadsBackToItsFile) {
  const struct {
    const char* entry;
    const char* fileName;
    bool isMainFile;
  } cases[] = {
      {"2010-05-06_14-30-05", "2010-05-06_14-30-05_BO.txt", false},
      {"BO.txt", "BO.txt", true},
      {"bo.TXT", "bo.TXT", true},
      {"ISIN.txt", "ISIN.txt_BO.txt", false},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(BackupEntryPath(kBoKind, each.entry), folder_ / each.fileName);
    EXPECT_EQ(IsMainFileEntry(kBoKind, each.entry), each.isMainFile) << each.entry;
  }
}

TEST_F(ListBackupsTest, ABackupHoldsTheFileAsSavedAndIsNamedByTheMoment) {
  folder_.Write("BO.txt", "S/N~BO ID\r\n1~Jos\xE9\r");
  platform_.now = {2010, 5, 6, 14, 30, 5, 999};
  TakeBackup(kBoKind);
  EXPECT_EQ(platform_.TakeMessage(),
            (Message{"Backup taken successfully.", "Backup succeeded.", MessageIcon::Information}));
  EXPECT_EQ(folder_.Read("2010-05-06_14-30-05_BO.txt"), "S/N~BO ID\r\n1~Jos\xE9\r");

  // A second one within the second takes the name over.
  folder_.Write("BO.txt", "newer");
  TakeBackup(kBoKind);
  EXPECT_EQ(folder_.Read("2010-05-06_14-30-05_BO.txt"), "newer");
  EXPECT_EQ(ListBackups(kBoKind), (Entries{"2010-05-06_14-30-05", "BO.txt"}));
}

TEST_F(ListBackupsTest, AFailedCopyIsToldWithoutTheSuccess) {
  TakeBackup(kIsinKind);
  EXPECT_EQ(platform_.TakeMessage(), Message{"File not found"});
  EXPECT_EQ(folder_.EntryCount(), 0);
}

TEST_F(ListBackupsTest, LoadingFillsTheGridFromTheEntrysFile) {
  folder_.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~main~M~C1\r");
  folder_.Write("2010-05-06_14-30-05_BO.txt",
                "S/N~BO ID~BO Name~Client Code\r\n1~a~A~C1\r\n2~b~B~C2\r");
  FlexGrid grid;
  LayOutListGrid(grid, kBoKind);
  LoadBackup(grid, kBoKind, "2010-05-06_14-30-05");
  EXPECT_EQ(RowsOf(grid), (Entries{"1|a|A|C1", "2|b|B|C2\r"}));
  LoadBackup(grid, kBoKind, "BO.txt");
  EXPECT_EQ(RowsOf(grid), Entries{"1|main|M|C1\r"});
}

TEST_F(ListBackupsTest, DeletingAsksFirstAndRefusesTheMainFile) {
  folder_.Write("BO.txt", "main");
  folder_.Write("2010-05-06_14-30-05_BO.txt", "old");
  EXPECT_FALSE(DeleteBackup(kBoKind, "BO.txt"));
  EXPECT_EQ(platform_.TakeMessage(),
            (Message{"This is currently the main file. You cannot delete this.", "Deletion Failed",
                     MessageIcon::Critical}));
  EXPECT_TRUE(folder_.Has("BO.txt"));

  const Message question = {"Are you sure to delete the selected backup?", "Delete Confirmation",
                            MessageIcon::Critical, MessageButtons::YesNo};
  EXPECT_FALSE(DeleteBackup(kBoKind, "2010-05-06_14-30-05"));
  EXPECT_EQ(platform_.TakeMessage(), question);
  EXPECT_TRUE(folder_.Has("2010-05-06_14-30-05_BO.txt"));

  platform_.answers = {MessageAnswer::Yes, MessageAnswer::Yes};
  EXPECT_TRUE(DeleteBackup(kBoKind, "2010-05-06_14-30-05"));
  EXPECT_FALSE(folder_.Has("2010-05-06_14-30-05_BO.txt"));
  ASSERT_EQ(platform_.messages.size(), 2u);
  EXPECT_EQ(platform_.messages[1], (Message{"Backup deleted successfully.", "Delete Succeeded",
                                            MessageIcon::Information}));

  // Another program was faster.
  EXPECT_THROW(DeleteBackup(kBoKind, "2010-05-06_14-30-05"), RuntimeError);
}

}  // namespace
}  // namespace tallyrun::testing
