// The command-line client: carries out the lines of a script over a network and writes what the
// system's client would write. Local files are opened by the names that the script gives,
// relative to the current folder. Knows no sockets.
#pragma once

#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "practice/ftp/Network.h"
#include "practice/ftp/ReplyReader.h"

namespace tallyrun::practice {

class FtpClient {
 public:
  // Network and output must outlive the client.
  FtpClient(Network& network, std::ostream& output) : network_(network), output_(output) {}

  // Carries out line after line until "bye" or the script's end.
  void Run(std::istream& script);

 private:
  using Words = std::vector<std::string>;
  struct Command;
  static const Command kCommands[];

  // Each takes the words of its line, its name first, at least as many as the command needs.
  void Open(const Words& words);
  void TogglePrompt(const Words& words);
  void ChangeFolder(const Words& words);
  void MakeFolder(const Words& words);
  void Put(const Words& words);
  void Get(const Words& words);
  void Rename(const Words& words);
  void List(const Words& words);
  void SetAscii(const Words& words);
  void SetBinary(const Words& words);
  void Close(const Words& words);
  void Bye(const Words& words);

  void CarryOut(const std::string& line);
  std::string NextLine();
  void LogIn();
  bool IsConnected() const { return control_ != nullptr; }
  // Sends a command and shows the reply to it; code 0 when there is no connection (any more).
  Reply Ask(const std::string& command);
  Reply ShowReply();
  void Disconnect();
  // Opens a data connection and starts a transfer over it; null when one of them is refused.
  std::unique_ptr<Stream> StartTransfer(const std::string& command);
  void ShowAmount(std::size_t bytes, std::string_view verb);

  Network& network_;
  std::ostream& output_;
  std::istream* script_ = nullptr;
  std::string host_;
  std::unique_ptr<Stream> control_;
  std::unique_ptr<ReplyReader> replies_;
  bool interactive_ = true;
  bool done_ = false;
};

}  // namespace tallyrun::practice
