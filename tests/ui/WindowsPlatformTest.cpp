// The door to the machine: processes, the program's end, the locale.
#include "tests/support/ErrorOf.h"
#include "tests/support/TempFolder.h"
#include "tests/ui/TryForm.h"
#include "ui/WindowsPlatform.h"

namespace tallyrun::testing {
namespace {

// The file name's box in the file dialog: a combo box, or an edit in older ones.
constexpr int kFileNameCombo = 0x47C;
constexpr int kFileNameEdit = 0x480;

std::string CurrentDirectory() {
  char folder[MAX_PATH] = {};
  GetCurrentDirectoryA(MAX_PATH, folder);
  return folder;
}

TEST(WindowsPlatformTest, AChosenFileLeavesTheCurrentDirectoryAlone) {
  const TempFolder folder;
  const std::string chosen = folder.Write("payin_1.txt", "text");
  const std::string before = CurrentDirectory();
  WindowsPlatform platform;
  const FileDialogRequest request = {"Choose", {{"Text files (*.TXT)", "*.TXT"}}};
  bool choosing = true;
  // Until the dialog is gone, as it takes no answer while it is being filled.
  const Meanwhile answer([&] {
    const HWND dialog = FindWindowA("#32770", "Choose");
    if (dialog == nullptr || !IsWindowVisible(dialog)) return false;
    HWND name = GetDlgItem(dialog, kFileNameCombo);
    if (name == nullptr) name = GetDlgItem(dialog, kFileNameEdit);
    char text[MAX_PATH] = {};
    GetWindowTextA(name, text, MAX_PATH);
    const bool isNamed = text == chosen;
    if (!isNamed) SetWindowTextA(name, chosen.c_str());
    if (isNamed || !choosing) PostMessageA(dialog, WM_COMMAND, choosing ? IDOK : IDCANCEL, 0);
    return false;
  });
  EXPECT_EQ(platform.AskForFile(request), chosen);
  EXPECT_EQ(CurrentDirectory(), before);
  choosing = false;
  EXPECT_EQ(platform.AskForFile(request), std::nullopt);
}

TEST(WindowsPlatformTest, NoBoxOfTheSystemComesBeforeOursForAnEmptyDrive) {
  SetErrorMode(0);
  const WindowsPlatform platform;
  EXPECT_EQ(GetErrorMode() & SEM_FAILCRITICALERRORS, UINT{SEM_FAILCRITICALERRORS});
}

TEST(WindowsPlatformTest, AMissingProgramIsFileNotFound) {
  EXPECT_EQ(ErrorOf([] {
              WindowsPlatform().StartProcess("no-such-program-here one", WindowMode::NormalFocus);
            }),
            "File not found");
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
