// The command-line client: carries out the lines of a script and writes what the system's client
// would write. Local files are opened by the names that the script gives, relative to the current
// folder.
#pragma once

#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "practice/ftp/Connection.h"

namespace tallyrun::practice {

class FtpClient {
 public:
  // The script must outlive the client.
  explicit FtpClient(std::istream& script) : script_(script) {}

  // Carries out line after line until "bye" or the script's end.
  void Run();

 private:
  using Words = std::vector<std::string>;

  // Each takes the words of its line, its name first.
  void CarryOut(const Words& words);
  void Open(const Words& words);
  void Put(const std::string& name);
  void Get(const std::string& name);

  std::string NextLine();
  // Sends a command and shows the server's reply. Both give back the reply's code, 0 when there is
  // no connection (any more).
  int Ask(const std::string& command);
  int ShowReply();
  // Opens a data connection and starts a transfer over it; null when one of them is refused.
  std::unique_ptr<Connection> StartTransfer(const std::string& command);

  std::istream& script_;
  std::string host_;
  std::unique_ptr<Connection> control_;
  std::string pending_;    // of the control connection, not yet shown
  std::string lastReply_;  // its last line
};

}  // namespace tallyrun::practice
