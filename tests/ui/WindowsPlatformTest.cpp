// The door to the machine: processes, the program's end, the locale.
#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "tests/support/FormDriver.h"
#include "tests/support/TempFolder.h"
#include "tests/ui/TryForm.h"
#include "ui/WindowsPlatform.h"

namespace tallyrun::testing {
namespace {

std::string Windows(std::string path) {
  for (char& character : path) {
    if (character == '/') character = '\\';
  }
  return path;
}

TEST(WindowsPlatformTest, RunsABatchFileWhosePathHasBlanksAndGivesItsExitCode) {
  TempFolder folder;
  folder.Write("R & D (new)\\run it.bat",
               "@echo off\r\ncd /d \"%~dp0\"\r\necho done>out.txt\r\nexit 7\r\n");
  WindowsPlatform platform;
  const auto process =
      platform.StartProcess(Windows(folder / "R & D (new)\\run it.bat"), WindowMode::Hidden);
  std::optional<unsigned long> code;
  ASSERT_TRUE(PumpUntil([&] { return (code = process->ExitCode()).has_value(); }));
  EXPECT_EQ(code, 7u);
  EXPECT_TRUE(folder.Has("R & D (new)\\out.txt"));
}

TEST(WindowsPlatformTest, AMissingProgramIsFileNotFound) {
  WindowsPlatform platform;
  try {
    platform.StartProcess("no-such-program-here one two", WindowMode::NormalFocus);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Kind(), ErrorKind::FileNotFound);
  }
}

TEST(WindowsPlatformTest, NothingIsShownOnceTheMainFormIsClosed) {
  WindowsPlatform platform;
  SetPlatform(&platform);
  TryForm main("frmTryMain", true);
  main.Show();
  EXPECT_NO_THROW(platform.ProcessPendingEvents());
  main.Unload();
  EXPECT_THROW(platform.ProcessPendingEvents(), ProgramEnding);
  EXPECT_THROW(platform.ShowMessage({"text"}), ProgramEnding);
  EXPECT_THROW(platform.AskForFile({"title", {}}), ProgramEnding);
  EXPECT_THROW(platform.AskForFolder("prompt", ""), ProgramEnding);
  SetPlatform(nullptr);
}

TEST(WindowsPlatformTest, TheProgramsFolderHasNoBackslashAtItsEnd) {
  const std::string folder = WindowsPlatform().ProgramFolder();
  EXPECT_FALSE(folder.empty());
  EXPECT_NE(folder.back(), '\\');
  EXPECT_NE(GetFileAttributesA((folder + "\\windows_tests.exe").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(WindowsPlatformTest, MorningAndAfternoonHaveDesignatorsOfTheirOwn) {
  WindowsPlatform platform;
  EXPECT_EQ(platform.AmPmDesignator(0), platform.AmPmDesignator(11));
  EXPECT_EQ(platform.AmPmDesignator(12), platform.AmPmDesignator(23));
  EXPECT_NE(platform.AmPmDesignator(11), platform.AmPmDesignator(12));
}

}  // namespace
}  // namespace tallyrun::testing
