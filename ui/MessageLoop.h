// The one message loop: keyboard navigation for the form in front, and the ways to wait.
#pragma once

#include <functional>

namespace tallyrun {

// Handles messages until `done`, which is asked after each; also ends when the thread quits.
void RunMessagesUntil(const std::function<bool()>& done);

// Runs until the main form is gone. Gives back the program's exit code.
int RunMessageLoop();

// Handles what is waiting and comes back. Raises ProgramEnding once the main form is closed.
void PumpMessages();

}  // namespace tallyrun
