// A clerk at the real program: starts Tallyrun.exe, finds its windows, answers its boxes and
// dialogs. Works through the screen alone and links nothing of the program. Whatever does not come
// in time raises DriverError with a report of what was on the screen.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "practice/clerk/OpenWindow.h"

namespace tallyrun::testing {

// A visible window of another program, by its class; waits for it.
OpenWindow WindowOfClass(const std::string& windowClass);

struct Box {
  std::string title;
  std::string text;
  std::vector<std::string> buttons;  // captions, left to right

  bool operator==(const Box&) const = default;
};

class ClerkDriver {
 public:
  // Starts `program`, a full path, in its own folder.
  explicit ClerkDriver(const std::string& program);
  // Ends the program when it still runs, unless it was left running.
  ~ClerkDriver();
  ClerkDriver(const ClerkDriver&) = delete;
  ClerkDriver& operator=(const ClerkDriver&) = delete;

  // The window whose title begins with `title`; waits for it.
  OpenWindow Window(const std::string& title) const;
  bool HasWindow(const std::string& title) const;
  void WaitUntilClosed(const std::string& title) const;

  // The message box on the screen; waits for one.
  Box ReadBox() const;
  // Presses the box's button and waits until the box is gone; gives back what the box said.
  Box Answer(const std::string& button);
  // Types a path into the open-file dialog with this title and opens it.
  void ChooseFile(const std::string& dialogTitle, const std::string& path);
  // Closes the open-file dialog with this title without a choice.
  void CancelFile(const std::string& dialogTitle);

  // Waits until a window is in front and none of the program's has anything left to paint; false
  // when that takes too long.
  bool WaitUntilPainted() const;

  // Waits for the program to end; its exit code.
  DWORD WaitForEnd();
  bool HasEnded() const;
  void LeaveRunning() { leaveRunning_ = true; }

  // All visible windows of the program, for a failure's report.
  std::string DescribeScreen() const;

 private:
  std::vector<HWND> Windows() const;
  std::optional<HWND> FindWindowTitled(const std::string& title) const;
  std::optional<HWND> FindBox() const;
  HWND WaitForBox() const;
  OpenWindow WaitForFileDialog(const std::string& title) const;

  PROCESS_INFORMATION process_{};
  bool leaveRunning_ = false;
};

}  // namespace tallyrun::testing
