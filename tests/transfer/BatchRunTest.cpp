// The batch run for real: the system's command interpreter and a client that has no server.
#include <windows.h>

#include <gtest/gtest.h>

#include "core/Settings.h"
#include "core/modFileIO.h"
#include "tests/support/TempFolder.h"
#include "transfer/FtpTransfer.h"
#include "ui/WindowsPlatform.h"

namespace tallyrun::testing {
namespace {

TEST(BatchRunTest, RunsTheClientInTheWorkingFolderAndGivesBackWhatItPrints) {
  WindowsPlatform platform;
  SetPlatform(&platform);
  const TempFolder folder;
  // The interpreter misreads the accent in the batch, which must not matter.
  for (const char* name : {"plain", "day books (old) & new", "caf\xE9"}) {
    SCOPED_TRACE(name);
    Settings.backupLocation = folder / name + "\\";
    CreateFolder(folder / name);
    const std::string client = Settings.backupLocation + "ftp.exe";
    ASSERT_TRUE(CopyFileA(TALLYRUN_FTP_CLIENT, client.c_str(), TRUE)) << GetLastError();
    EXPECT_EQ(RunFtpScript(Settings.backupLocation, "get file\r\nbye"),
              "ftp> get file\r\nNot connected.\r\nftp> bye\r\n");
    RemoveFtpFiles(Settings.backupLocation);
    EXPECT_EQ(ListFiles(Settings.backupLocation + "*"), std::vector<std::string>{"ftp.exe"});
  }
  Settings = {};
  SetPlatform(nullptr);
}

}  // namespace
}  // namespace tallyrun::testing
