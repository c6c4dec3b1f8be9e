// The texts that drive the command-line FTP client: its script and the batch file that runs it.
// Byte for byte; knows no files and no processes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyrun {

// The exchange's server as the client's "open" takes it, compiled in.
extern const char kExchangeAddress[];

// The lines joined by CR LF, nothing after the last.
std::string JoinLines(const std::vector<std::string>& lines);

// What every script begins with: logging in and changing to the exchange's folder.
std::vector<std::string> ConnectionLines();

// The connection lines, the operation's own lines and "bye".
std::string FtpScript(const std::vector<std::string>& operationLines);

// Uploads `fileName` into the day's folder, "05-Jan-2010".
std::string SendScript(const std::string& day, const std::string& fileName);
// Downloads it from there.
std::string AlreadySentScript(const std::string& day, const std::string& fileName);

// Runs the script in the working folder, the client's output going into a file. `workingFolder`
// has its trailing backslash.
std::string BatchText(const std::string& workingFolder);

// The client's only sign of a transfer that went well.
bool HasTransferCompleted(std::string_view clientOutput);

}  // namespace tallyrun
