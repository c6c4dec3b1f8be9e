// Drives real windows as a clerk does: clicks, keys, and waiting for what they bring about.
#pragma once

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>

#include "core/text/Conversion.h"
#include "ui/DatePicker.h"
#include "ui/FlexGridControl.h"
#include "ui/Form.h"

namespace tallyrun::testing {

// Handles every waiting message, to the end when the program is ending.
void Pump();

// Handles messages until `condition` holds; false when it does not within ten seconds.
bool PumpUntil(const std::function<bool()>& condition);

// Tries `step` whenever messages are handled, also by a modal form or a system's dialog, until it
// gives back true or this goes. One at a time.
class Meanwhile {
 public:
  explicit Meanwhile(std::function<bool()> step);
  ~Meanwhile();
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

 private:
  static void CALLBACK Try(HWND, UINT, UINT_PTR, DWORD);

  std::function<bool()> step_;
  UINT_PTR timer_;
};

// The form's control with this id.
template <class C = Control>
C& ControlOf(const Form& form, int id) {
  const auto& all = form.Controls();
  const auto found =
      std::find_if(all.begin(), all.end(), [id](Control* each) { return each->Id() == id; });
  if (found == all.end()) throw std::out_of_range("no control " + std::to_string(id));
  return static_cast<C&>(**found);
}

// Presses and releases the left mouse button in the middle of the control, and handles it.
void ClickOn(const Control& control);

// Sends a mouse message to the middle of the cell, and handles it.
void MouseOnCell(const FlexGridControl& grid, UINT message, int row, int col);

// Presses and releases a key in the window with the focus, and handles it. The key passes
// through the message loop, as a real one does.
void PressKey(int virtualKey);

// Chooses a date as a clerk does in the picker's calendar.
void PickDay(const DatePicker& picker, const Date& day);

// The visible controls stand inside the window and apart from each other at any DPI.
void ExpectControlsApart(const Form& form);

}  // namespace tallyrun::testing
