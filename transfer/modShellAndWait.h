// Starting a command and waiting for its process while the window stays alive.
#pragma once

#include <cstdint>
#include <string>

namespace tallyrun {

// Starts `commandLine` with its window hidden and comes back when the process has ended or, when
// `timeoutSeconds` is more than 0, once that many seconds have passed, past midnight too. Events
// run meanwhile. The process itself is never ended. Raises FileNotFound when there is no such
// command, ProgramEnding when the main window is closed during the wait.
void ShellAndWait(const std::string& commandLine, std::int32_t timeoutSeconds);

}  // namespace tallyrun
