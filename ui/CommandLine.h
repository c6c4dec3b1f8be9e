// The command line that starts a program or batch file, quoted so that blanks in its path and
// the interpreter's own characters do no harm.
#pragma once

#include <string>

namespace tallyrun {

// What to hand to the system for `commandLine`: a program or batch file, quoted or not, and its
// arguments. `namesFile` tells that the text as a whole is the path of a file, blanks included.
// A batch file is run by `interpreter`, the path of the command interpreter.
std::string CommandLineToRun(const std::string& commandLine, bool namesFile,
                             const std::string& interpreter);

}  // namespace tallyrun
