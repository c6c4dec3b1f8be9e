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

// The folder to start `commandLine` in: a batch file's own, or "" for the program's current one.
// The interpreter reads a batch file in the console's code page and so misreads a "cd" to a
// folder with an accent; where it starts is given to the system in the program's own.
std::string FolderToStartIn(const std::string& commandLine, bool namesFile);

}  // namespace tallyrun
