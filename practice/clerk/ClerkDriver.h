// A clerk at the real program: starts Tallyrun.exe, finds its windows, answers its boxes and
// dialogs. Works through the screen alone and links nothing of the program. Whatever does not come
// in time raises DriverError with a report of what was on the screen.
#pragma once

#include <windows.h>

#include <functional>
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
  // Presses a button of the box on the screen and waits until the box is gone.
  void PressInBox(const std::string& button) const;
  // Types a path into the open-file dialog with this title and opens it.
  void ChooseFile(const std::string& dialogTitle, const std::string& path) const;

  // Waits until a window is in front and none of the program's has anything left to paint; false
  // when that takes too long.
  bool WaitUntilPainted() const;

  // Waits for the program to end; its exit code.
  DWORD WaitForEnd();
  bool HasEnded() const;
  void LeaveRunning() { leaveRunning_ = true; }

 private:
  std::vector<HWND> Windows() const;
  // Null when there is none.
  HWND FindWindowTitled(const std::string& title) const;
  HWND FindBox() const;
  HWND FindFileDialog(const std::string& title) const;
  // What `find` finds, as soon as it does.
  HWND WaitFor(const std::function<HWND()>& find, const std::string& what) const;
  [[noreturn]] void Fail(const std::string& what) const;

  PROCESS_INFORMATION process_{};
  bool leaveRunning_ = false;
};

}  // namespace tallyrun::testing
