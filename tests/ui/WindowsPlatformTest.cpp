// The door to the machine: processes, the program's end, the locale.
#include <functional>
#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "tests/support/FormDriver.h"
#include "tests/support/TempFolder.h"
#include "tests/ui/TryForm.h"
#include "ui/WindowsPlatform.h"

namespace tallyrun::testing {
namespace {

// The file name's box in the file dialog: a combo box, or an edit in older ones.
constexpr int kFileNameCombo = 0x47C;
constexpr int kFileNameEdit = 0x480;

std::string Windows(std::string path) {
  for (char& character : path) {
    if (character == '/') character = '\\';
  }
  return path;
}

// Runs `answer` with the system's dialog once it is shown; true means answered.
class DialogAnswer {
 public:
  explicit DialogAnswer(std::function<bool(HWND)> answer) {
    answer_ = std::move(answer);
    timer_ = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, TryToAnswer);
  }
  ~DialogAnswer() { KillTimer(nullptr, timer_); }
  DialogAnswer(const DialogAnswer&) = delete;
  DialogAnswer& operator=(const DialogAnswer&) = delete;

 private:
  static void CALLBACK TryToAnswer(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND dialog = FindWindowA("#32770", nullptr);
    if (dialog != nullptr && IsWindowVisible(dialog) && answer_(dialog)) KillTimer(nullptr, timer);
  }

  static std::function<bool(HWND)> answer_;
  UINT_PTR timer_;
};
std::function<bool(HWND)> DialogAnswer::answer_;

std::string CurrentDirectory() {
  char folder[MAX_PATH] = {};
  GetCurrentDirectoryA(MAX_PATH, folder);
  return folder;
}

TEST(WindowsPlatformTest, AChosenFileLeavesTheCurrentDirectoryAlone) {
  TempFolder folder;
  folder.Write("payin_1.txt", "text");
  const std::string chosen = Windows(folder / "payin_1.txt");
  const std::string before = CurrentDirectory();
  WindowsPlatform platform;
  const FileDialogRequest request = {"Choose", {{"Text files (*.TXT)", "*.TXT"}}};
  {
    const DialogAnswer answer([&](HWND dialog) {
      HWND name = GetDlgItem(dialog, kFileNameCombo);
      if (name == nullptr) name = GetDlgItem(dialog, kFileNameEdit);
      if (name == nullptr) return false;
      SetWindowTextA(name, chosen.c_str());
      PostMessageA(dialog, WM_COMMAND, IDOK, 0);
      return true;
    });
    EXPECT_EQ(platform.AskForFile(request), chosen);
  }
  EXPECT_EQ(CurrentDirectory(), before);
  const DialogAnswer cancel(
      [](HWND dialog) { return PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); });
  EXPECT_EQ(platform.AskForFile(request), std::nullopt);
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

}  // namespace
}  // namespace tallyrun::testing
