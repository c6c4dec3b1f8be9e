// Running a script against the exchange: the one way to reach it. The files of a transfer lie in
// a working folder, always under the same names, so there is one transfer at a time, whichever
// window asks for it.
#pragma once

#include <string>

namespace tallyrun {

// One transfer, from its first write until its output is read. It keeps to the folder it began in:
// the clerk can save other settings while it is waited for.
class FtpTransfer {
 public:
  // `folder` has its trailing backslash. Raises PermissionDenied while another transfer runs.
  explicit FtpTransfer(const std::string& folder);
  ~FtpTransfer();
  FtpTransfer(const FtpTransfer&) = delete;
  FtpTransfer& operator=(const FtpTransfer&) = delete;

  // Writes script and batch, runs the batch, waits for it and gives back what the client printed.
  // Deletes only what an earlier run printed. Raises FileNotFound when there is no output at all.
  std::string RunFtpScript(const std::string& script) const;

 private:
  std::string folder_;
};

// Deletes script, batch and output; what is already gone is no error.
void RemoveFtpFiles(const std::string& folder);

}  // namespace tallyrun
