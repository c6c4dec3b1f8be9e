// One window of the program under test as the clerk sees it: found controls by their numbers, their
// texts and states, and clicks into them. Everything is asked from outside, of another process.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "practice/clerk/Hand.h"

namespace tallyrun::testing {

class OpenWindow {
 public:
  explicit OpenWindow(HWND window) : window_(window) {}

  HWND Handle() const { return window_; }
  bool IsOpen() const;
  std::string Caption() const;

  // A control by its number, at any depth. Waits for it; raises DriverError when it does not come.
  HWND Control(int id) const;
  bool HasControl(int id) const;
  std::string Text(int id) const;
  bool IsVisible(int id) const;  // false also for a control that is not there yet

  // Clicks in the middle of the control once it is visible and enabled.
  void Click(int id) const;
  // Clicks at a place of the control, in pixels from its upper left corner.
  void ClickAt(int id, POINT place) const;
  // Clicks the button with this caption; an underlined letter does not count.
  void ClickButton(const std::string& caption) const;
  // Replaces the text of a text box.
  void Enter(int id, const std::string& text) const;
  // Presses Tab until the control has the focus.
  void TabTo(int id) const;
  bool HasFocus(int id) const;
  // Chooses an entry of a drop-down list.
  void Choose(int id, const std::string& entry) const;

  // Every visible control's class, number and text, for a failure's report.
  std::string Describe() const;

 private:
  HWND FindControl(int id) const;
  HWND FocusedControl() const;
  void ClickInside(HWND control, POINT place) const;
  void ClickMiddle(HWND control) const;

  HWND window_;
};

// The text of any window or control; waits for a busy program only so long.
std::string TextOf(HWND window);
// The same without the mark of an underlined letter.
std::string CaptionOf(HWND window);
std::string ClassOf(HWND window);
std::vector<HWND> ChildrenOf(HWND window);

}  // namespace tallyrun::testing
