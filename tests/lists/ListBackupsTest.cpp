#include "core/RuntimeError.h"
#include "lists/ListBackups.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

using Texts = std::vector<std::string>;
using ListBackupsTest = ProgramFixture;

constexpr char kEntry[] = "2010-05-06_14-30-05";
constexpr char kFile[] = "2010-05-06_14-30-05_BO.txt";

TEST_F(ListBackupsTest, ABackupIsTakenOfTheSavedFileListedAndLoaded) {
  TakeBackup(kBoKind);
  EXPECT_EQ(platform.TakeMessage(), Message{"File not found"});
  EXPECT_EQ(folder.EntryCount(), 0);
  platform.now = {2010, 5, 6, 14, 30, 5, 999};
  for (const char* name : {"2009-12-31_23-59-59_BO.txt", "a_ISIN.txt", "a_PI.txt", kFile}) {
    folder.Write(name, "a second backup within the second takes the file over");
  }
  folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~a~Jos\xE9~C1\r\n2~b~B~C2\r");
  TakeBackup(kBoKind);
  EXPECT_EQ(platform.TakeMessage().text, "Backup taken successfully.");
  EXPECT_EQ(ListBackups(kBoKind), (Texts{"2009-12-31_23-59-59", kEntry, "BO.txt"}));
  LayOutListGrid(grid, kBoKind);
  folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~main~M~C1\r");
  LoadBackup(grid, kBoKind, kEntry);
  EXPECT_EQ(RowsOf(grid), (Texts{"1|a|Jos\xE9|C1", "2|b|B|C2\r"}));
  LoadBackup(grid, kBoKind, "BO.txt");
  EXPECT_EQ(RowsOf(grid), Texts{"1|main|M|C1\r"});
}

}  // namespace
}  // namespace tallyrun::testing
