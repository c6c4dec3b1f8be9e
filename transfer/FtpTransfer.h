// A transfer to or from the exchange: the one way to reach it. A script for the system's FTP client
// is run by a batch file, and what the client prints is all that is known of how it went. The files
// lie in a working folder, always under the same names, so there is one transfer at a time,
// whichever window asks for it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/Platform.h"

namespace tallyrun {

// The exchange's server as the client's "open" takes it, compiled in.
extern const char kExchangeAddress[];

// One transfer, from its first write until its output is read. It keeps to the folder it began in:
// the clerk can save other settings while it is waited for.
class FtpTransfer {
 public:
  // `folder` has its trailing backslash. Raises PermissionDenied while another transfer runs.
  explicit FtpTransfer(std::string folder);
  ~FtpTransfer();
  FtpTransfer(const FtpTransfer&) = delete;
  FtpTransfer& operator=(const FtpTransfer&) = delete;

  // Has the client log in, change to the exchange's folder and carry out the lines, waits for it
  // and gives back what it printed. Script, batch and output stay. Raises FileNotFound when there
  // is no output at all.
  std::string RunFtpScript(const std::vector<std::string>& operationLines) const;

 private:
  std::string folder_;
};

// The client's only sign of a transfer that went well.
bool HasTransferCompleted(std::string_view clientOutput);

// The moment of a send in the name of a file that it puts aside, "06-Jan-10_04-12-55PM".
std::string SendStamp(const ClockTime& moment);

// Deletes script, batch and output; what is already gone is no error.
void RemoveFtpFiles(const std::string& folder);

}  // namespace tallyrun
