// The door to the machine: the system's dialogs and programs, and the program's end.
#include <filesystem>

#include "tests/support/ErrorOf.h"
#include "tests/support/TempFolder.h"
#include "tests/ui/TryForm.h"
#include "ui/WindowsPlatform.h"

namespace tallyrun::testing {
namespace {

TEST(WindowsPlatformTest, AChosenFileLeavesTheCurrentDirectoryAlone) {
  // The file name's box in the dialog: a combo box, or an edit in older ones.
  constexpr int kFileNameCombo = 0x47C;
  constexpr int kFileNameEdit = 0x480;
  const TempFolder folder;
  const std::string chosen = folder.Write("payin_1.txt", "text");
  const auto before = std::filesystem::current_path();
  WindowsPlatform platform;
  const FileDialogRequest request = {"Choose", {{"Text files (*.TXT)", "*.TXT"}}};
  bool choosing = true;
  // Until the dialog is gone, as it takes no answer while it is being filled.
  const Meanwhile answer([&] {
    const HWND dialog = FindWindowA("#32770", "Choose");
    if (dialog == nullptr || !IsWindowVisible(dialog)) return false;
    const int box = GetDlgItem(dialog, kFileNameCombo) ? kFileNameCombo : kFileNameEdit;
    char text[MAX_PATH] = {};
    GetDlgItemTextA(dialog, box, text, MAX_PATH);
    const bool isNamed = text == chosen;
    if (!isNamed) SetDlgItemTextA(dialog, box, chosen.c_str());
    if (isNamed || !choosing) PostMessageA(dialog, WM_COMMAND, choosing ? IDOK : IDCANCEL, 0);
    return false;
  });
  EXPECT_EQ(platform.AskForFile(request), chosen);
  EXPECT_EQ(std::filesystem::current_path(), before);
  choosing = false;
  EXPECT_EQ(platform.AskForFile(request), std::nullopt);
}

TEST(WindowsPlatformTest, WhatIsMissingIsToldByTheProgramAlone) {
  SetErrorMode(0);
  WindowsPlatform platform;
  // No box of the system's comes before ours, as for an empty drive.
  EXPECT_TRUE(GetErrorMode() & SEM_FAILCRITICALERRORS);
  EXPECT_EQ(
      ErrorOf([&] { platform.StartProcess("no-such-program-here one", WindowMode::NormalFocus); }),
      "File not found");
}

TEST(WindowsPlatformTest, NothingIsShownOnceTheMainFormIsClosed) {
  WindowsPlatform platform;
  SetPlatform(&platform);
  TryForm main("frmTryMain", true);
  main.Show();
  main.Unload();
  EXPECT_THROW(platform.ProcessPendingEvents(), ProgramEnding);
  EXPECT_THROW(platform.ShowMessage({"text"}), ProgramEnding);
  EXPECT_THROW(platform.AskForFile({"title", {}}), ProgramEnding);
  EXPECT_THROW(platform.AskForFolder("prompt", ""), ProgramEnding);
  SetPlatform(nullptr);
}

}  // namespace
}  // namespace tallyrun::testing
