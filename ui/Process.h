// Starting a program or batch file of the system's, and knowing when it has ended.
#pragma once

#include <memory>
#include <string>

#include "core/Platform.h"

namespace tallyrun {

// Starts `commandLine`; a batch file runs through the command interpreter, whatever blanks its path
// has. Raises FileNotFound when there is no such program.
std::unique_ptr<Process> StartProcess(const std::string& commandLine, WindowMode mode);

}  // namespace tallyrun
