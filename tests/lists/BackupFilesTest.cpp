#include "lists/BackupFiles.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

using BackupFilesTest = ProgramFixture;

TEST_F(BackupFilesTest, TheKindsCopiesAndItsListAreEntriesHoweverTheirFilesAreSpelt) {
  EXPECT_TRUE(BackupEntries(kBoKind).empty());
  for (const char* name : {"2009-12-31_23-59-59_bo.TXT", "2010-05-06_14-30-05_BO.txt", "Bo.txt",
                           "a_ISIN.txt", "a_PI.txt", "BO.txt.old"}) {
    folder.Write(name, "");
  }
  EXPECT_EQ(BackupEntries(kBoKind),
            (std::vector<std::string>{"2009-12-31_23-59-59", "2010-05-06_14-30-05", "Bo.txt"}));
  EXPECT_EQ(BackupEntries(kIsinKind), std::vector<std::string>{"a"});
  EXPECT_EQ(BackupPathAt(kBoKind, {2010, 5, 6, 14, 30, 5, 999}),
            BackupEntryPath(kBoKind, "2010-05-06_14-30-05"));
  EXPECT_EQ(BackupEntryPath(kBoKind, "2010-05-06_14-30-05"), folder / "2010-05-06_14-30-05_BO.txt");
  EXPECT_EQ(BackupEntryPath(kBoKind, "Bo.txt"), folder / "Bo.txt");
}

}  // namespace
}  // namespace tallyrun::testing
