// Running a script against the exchange: the one way to reach it. The files of a transfer lie in
// a working folder, so one transfer at a time. A transfer keeps to the folder it began in: the
// clerk can save other settings while it is waited for.
#pragma once

#include <string>

namespace tallyrun {

// Writes script and batch into `folder` (with its trailing backslash), runs the batch, waits for
// it and gives back what the client printed. Deletes only what an earlier run printed. Raises
// FileNotFound when there is no output at all.
std::string RunFtpScript(const std::string& folder, const std::string& script);

// Deletes script, batch and output; what is already gone is no error.
void RemoveFtpFiles(const std::string& folder);

}  // namespace tallyrun
