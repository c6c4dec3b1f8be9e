// Running a script against the exchange: the one way to reach it. The files of a transfer lie in
// the working folder, so one transfer at a time.
#pragma once

#include <string>

#include "core/BusyWindow.h"
#include "core/Platform.h"

namespace tallyrun {

// Writes script and batch, runs the batch, waits for it and gives back what the client printed.
// Deletes nothing. Raises FileNotFound when there is no output at all.
std::string RunFtpScript(const std::string& script);

// Deletes script, batch and output; what is already gone is no error.
void RemoveFtpFiles();

// Ends the window's busy signs with the outcome: it stands behind the kept caption while the box
// tells it, and then the caption is as it was kept.
void TellOutcome(BusyWindow& window, const std::string& savedCaption, const std::string& outcome,
                 const std::string& title, MessageIcon icon);

}  // namespace tallyrun
