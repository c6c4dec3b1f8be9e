// An FTP server's side of a conversation, written down beforehand: what each connection sends
// when, and a record of what the client sent.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "practice/ftp/Network.h"

namespace tallyrun::testing {

class ScriptedNetwork : public practice::Network {
 public:
  std::string greeting = "220 Ready.\r\n";
  // The reply to a command line; a command not listed hangs up.
  std::map<std::string, std::string> replies;
  std::string download;          // what a data connection sends
  bool uploadIsRefused = false;  // a data connection takes nothing
  bool connectFails = false;

  std::vector<std::string> commands;  // received, in order
  std::string uploaded;

  practice::ConnectResult Connect(const std::string&, int port) override {
    if (connectFails) return {nullptr, "> ftp: connect :Connection refused"};
    if (port == kDataPort) return {std::make_unique<Data>(*this), {}};
    return {std::make_unique<Control>(*this), {}};
  }

  static constexpr int kDataPort = 4 * 256 + 1;

 private:
  class Control : public practice::Stream {
   public:
    explicit Control(ScriptedNetwork& network) : network_(network), pending_(network.greeting) {}
    bool Send(std::string_view bytes) override {
      std::string command(bytes.substr(0, bytes.find("\r\n")));
      network_.commands.push_back(command);
      const auto reply = network_.replies.find(command);
      if (reply != network_.replies.end()) pending_ += reply->second;
      return true;
    }
    // In small pieces, as a network may deliver them.
    std::string Receive() override {
      std::string piece = pending_.substr(0, 7);
      pending_.erase(0, piece.size());
      return piece;
    }

   private:
    ScriptedNetwork& network_;
    std::string pending_;
  };

  class Data : public practice::Stream {
   public:
    explicit Data(ScriptedNetwork& network) : network_(network), pending_(network.download) {}
    bool Send(std::string_view bytes) override {
      if (network_.uploadIsRefused) return false;
      network_.uploaded += bytes;
      return true;
    }
    std::string Receive() override { return std::exchange(pending_, std::string()); }

   private:
    ScriptedNetwork& network_;
    std::string pending_;
  };
};

}  // namespace tallyrun::testing
