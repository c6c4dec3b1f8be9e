#include "practice/ftp/FtpClient.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

namespace tallyrun::practice {
namespace {

bool IsPreliminary(int code) { return code / 100 == 1; }
bool IsCompletion(int code) { return code / 100 == 2; }
bool IsIntermediate(int code) { return code / 100 == 3; }

void Say(const std::string& line) { std::cout << line << std::endl; }

}  // namespace

void FtpClient::Run() {
  for (bool done = false; !done && script_.peek() != std::istream::traits_type::eof();) {
    const std::string line = NextLine();
    Say("ftp> " + line);
    std::istringstream text(line);
    Words words;
    for (std::string word; text >> word;) words.push_back(word);
    if (words.empty()) continue;
    done = words[0] == "bye";
    CarryOut(words);
  }
}

std::string FtpClient::NextLine() {
  std::string line;
  std::getline(script_, line);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

void FtpClient::CarryOut(const Words& words) {
  const std::string& name = words[0];
  const auto is = [&](const char* command, std::size_t operands) {
    return name == command && words.size() > operands;
  };
  if (is("open", 1)) {
    Open(words);
  } else if (is("prompt", 0)) {
    Say("Interactive mode Off .");
  } else if (is("bye", 0)) {
    if (control_) Ask("QUIT");
  } else if (!is("cd", 1) && !is("mkdir", 1) && !is("put", 1) && !is("get", 1) &&
             !is("rename", 2)) {
    Say("Invalid command.");
  } else if (!control_) {
    Say("Not connected.");
  } else if (name == "cd") {
    Ask("CWD " + words[1]);
  } else if (name == "mkdir") {
    Ask("MKD " + words[1]);
  } else if (name == "put") {
    Put(words[1]);
  } else if (name == "get") {
    Get(words[1]);
  } else if (IsIntermediate(Ask("RNFR " + words[1]))) {
    Ask("RNTO " + words[2]);
  }
}

// The user's name and password are the script's next lines; they are not shown.
void FtpClient::Open(const Words& words) {
  host_ = words[1];
  try {
    control_ = std::make_unique<Connection>(host_, words.size() > 2 ? words[2] : "21");
  } catch (const std::exception& failure) {
    Say(failure.what());
    return;
  }
  Say("Connected to " + host_ + ".");
  ShowReply();
  Say("User (" + host_ + ":(none)): ");
  int code = Ask("USER " + NextLine());
  if (IsIntermediate(code)) {
    Say("Password: ");
    code = Ask("PASS " + NextLine());
  }
  if (control_ && !IsCompletion(code)) Say("Login failed.");
}

void FtpClient::Put(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  if (!file) {
    Say(name + ": File not found");
    return;
  }
  const std::string text((std::istreambuf_iterator<char>(file)), {});
  std::unique_ptr<Connection> data = StartTransfer("STOR " + name);
  if (!data) return;
  // The server may stop the transfer; its reply then says why.
  data->Send(text);
  // The end of the data connection is the end of the file.
  data.reset();
  if (IsCompletion(ShowReply())) Say("ftp: " + std::to_string(text.size()) + " bytes sent.");
}

void FtpClient::Get(const std::string& name) {
  std::unique_ptr<Connection> data = StartTransfer("RETR " + name);
  if (!data) return;
  // Opened no earlier, so that a refused transfer leaves the local file alone.
  std::ofstream file(name, std::ios::binary | std::ios::trunc);
  std::size_t size = 0;
  for (std::string piece; !(piece = data->Receive()).empty(); size += piece.size()) file << piece;
  file.close();
  if (!file) {
    // The server may have sent everything; to show that would claim a file that is not there.
    Say("Error writing local file " + name + ".");
    control_.reset();
    return;
  }
  if (IsCompletion(ShowReply())) Say("ftp: " + std::to_string(size) + " bytes received.");
}

int FtpClient::Ask(const std::string& command) {
  if (!control_) return 0;
  // When the server is gone, reading finds that out and says so.
  control_->Send(command + "\r\n");
  return ShowReply();
}

// A reply may have several lines; a blank after the code marks the last.
int FtpClient::ShowReply() {
  do {
    while (pending_.find('\n') == std::string::npos) {
      const std::string more = control_->Receive();
      if (more.empty()) {
        Say("Connection closed by remote host.");
        control_.reset();
        return 0;
      }
      pending_ += more;
    }
    lastReply_ = pending_.substr(0, pending_.find('\n'));
    pending_.erase(0, lastReply_.size() + 1);
    if (lastReply_.ends_with('\r')) lastReply_.pop_back();
    Say(lastReply_);
  } while (lastReply_.size() < 4 || lastReply_[3] != ' ');
  return std::atoi(lastReply_.c_str());
}

// The data connection is opened towards the server, which works behind any firewall that lets the
// control connection through.
std::unique_ptr<Connection> FtpClient::StartTransfer(const std::string& command) {
  // "227 Entering Passive Mode (h1,h2,h3,h4,p1,p2)": the port is p1 times 256 and p2.
  int high = 0;
  int low = 0;
  if (Ask("PASV") != 227 ||
      std::sscanf(lastReply_.c_str(), "%*[^(](%*d,%*d,%*d,%*d,%d,%d", &high, &low) != 2) {
    return nullptr;
  }
  std::unique_ptr<Connection> data;
  try {
    data = std::make_unique<Connection>(host_, std::to_string(high * 256 + low));
  } catch (const std::exception& failure) {
    Say(failure.what());
    return nullptr;
  }
  if (!IsPreliminary(Ask(command))) return nullptr;
  return data;
}

}  // namespace tallyrun::practice
