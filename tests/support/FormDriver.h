// Drives real windows as a clerk does: clicks, keys, and waiting for what they bring about.
#pragma once

#include <functional>
#include <string>

#include "ui/Form.h"

namespace tallyrun::testing {

// Handles every waiting message, to the end when the program is ending.
void Pump();

// Handles messages until `condition` holds; false when it does not within ten seconds.
bool PumpUntil(const std::function<bool()>& condition);

// Presses and releases the left mouse button in the middle of the control, and handles it.
void ClickOn(const Control& control);

// Presses and releases a key in the window with the focus, and handles it. The key passes
// through the message loop, as a real one does.
void PressKey(int virtualKey);

// Types `text`, letters and digits, into the window with the focus.
void TypeText(const std::string& text);

// The visible controls stand inside the window and apart from each other at any DPI.
void ExpectControlsApart(const Form& form);

}  // namespace tallyrun::testing
