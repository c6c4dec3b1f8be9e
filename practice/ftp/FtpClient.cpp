#include "practice/ftp/FtpClient.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <fstream>
#include <iterator>

namespace tallyrun::practice {
namespace {

constexpr int kDefaultPort = 21;
constexpr int kReadyReply = 220;
constexpr std::size_t kPieceSize = 65536;

// The words of a command line; quotation marks keep blanks together.
std::vector<std::string> SplitWords(const std::string& line) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false;
  bool begun = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
      begun = true;
    } else if (!quoted && (c == ' ' || c == '\t')) {
      if (begun) words.push_back(word);
      word.clear();
      begun = false;
    } else {
      word += c;
      begun = true;
    }
  }
  if (begun) words.push_back(word);
  return words;
}

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

// The last name of a remote or local path.
std::string FileNameOf(const std::string& path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace

struct FtpClient::Command {
  std::string_view name;
  std::size_t words;  // the least number, the name included
  std::string_view usage;
  bool needsConnection;
  void (FtpClient::*carryOut)(const Words& words);
};

const FtpClient::Command FtpClient::kCommands[] = {
    {"open", 2, "open host name [port]", false, &FtpClient::Open},
    {"prompt", 1, "", false, &FtpClient::TogglePrompt},
    {"cd", 2, "cd remote directory.", true, &FtpClient::ChangeFolder},
    {"mkdir", 2, "mkdir directory name", true, &FtpClient::MakeFolder},
    {"put", 2, "put local file [remote file]", true, &FtpClient::Put},
    {"get", 2, "get remote file [local file]", true, &FtpClient::Get},
    {"rename", 3, "rename from-name to-name", true, &FtpClient::Rename},
    {"ls", 1, "", true, &FtpClient::List},
    {"ascii", 1, "", true, &FtpClient::SetAscii},
    {"binary", 1, "", true, &FtpClient::SetBinary},
    {"close", 1, "", true, &FtpClient::Close},
    {"bye", 1, "", false, &FtpClient::Bye},
    {"quit", 1, "", false, &FtpClient::Bye},
};

void FtpClient::Run(std::istream& script) {
  script_ = &script;
  done_ = false;
  while (!done_ && script.peek() != std::istream::traits_type::eof()) {
    const std::string line = NextLine();
    output_ << "ftp> " << line << std::endl;
    CarryOut(line);
  }
  Disconnect();
  script_ = nullptr;
}

void FtpClient::CarryOut(const std::string& line) {
  const Words words = SplitWords(line);
  if (words.empty()) return;
  const std::string name = Lower(words[0]);
  const auto command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [&](const Command& known) { return known.name == name; });
  if (command == std::end(kCommands)) {
    output_ << "Invalid command." << std::endl;
  } else if (command->needsConnection && !IsConnected()) {
    output_ << "Not connected." << std::endl;
  } else if (words.size() < command->words) {
    output_ << "Usage: " << command->usage << std::endl;
  } else {
    (this->*command->carryOut)(words);
  }
}

std::string FtpClient::NextLine() {
  std::string line;
  std::getline(*script_, line);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

void FtpClient::Open(const Words& words) {
  if (IsConnected()) {
    output_ << "Already connected to " << host_ << ", use disconnect first." << std::endl;
    return;
  }
  int port = kDefaultPort;
  if (words.size() > 2) {
    const std::string& text = words[2];
    const auto result = std::from_chars(text.data(), text.data() + text.size(), port);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size() || port < 1 ||
        port > 65535) {
      output_ << text << ": bad port number." << std::endl;
      return;
    }
  }
  host_ = words[1];
  ConnectResult result = network_.Connect(host_, port);
  if (!result.stream) {
    output_ << result.failure << std::endl;
    return;
  }
  output_ << "Connected to " << host_ << "." << std::endl;
  control_ = std::move(result.stream);
  replies_ = std::make_unique<ReplyReader>(*control_);
  const Reply greeting = ShowReply();
  if (greeting.code == kReadyReply) {
    LogIn();
  } else {
    Disconnect();
  }
}

// The user's name and password are the script's next lines; they are not shown.
void FtpClient::LogIn() {
  output_ << "User (" << host_ << ":(none)): " << std::endl;
  Reply reply = Ask("USER " + NextLine());
  if (reply.IsIntermediate()) {
    output_ << "Password: " << std::endl;
    reply = Ask("PASS " + NextLine());
  }
  if (!reply.IsCompletion() && IsConnected()) output_ << "Login failed." << std::endl;
}

void FtpClient::TogglePrompt(const Words&) {
  interactive_ = !interactive_;
  output_ << "Interactive mode " << (interactive_ ? "On ." : "Off .") << std::endl;
}

void FtpClient::ChangeFolder(const Words& words) { Ask("CWD " + words[1]); }

void FtpClient::MakeFolder(const Words& words) { Ask("MKD " + words[1]); }

void FtpClient::Put(const Words& words) {
  std::ifstream file(words[1], std::ios::binary);
  if (!file) {
    output_ << words[1] << ": File not found" << std::endl;
    return;
  }
  const std::string remote = words.size() > 2 ? words[2] : FileNameOf(words[1]);
  std::unique_ptr<Stream> data = StartTransfer("STOR " + remote);
  if (!data) return;
  std::string piece(kPieceSize, '\0');
  std::size_t sent = 0;
  do {
    file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    const auto size = static_cast<std::size_t>(file.gcount());
    // The server may stop the transfer; its reply then says why.
    if (size > 0 && !data->Send(std::string_view(piece).substr(0, size))) break;
    sent += size;
  } while (file);
  // The end of the data connection is the end of the file.
  data.reset();
  if (ShowReply().IsCompletion()) ShowAmount(sent, "sent");
}

void FtpClient::Get(const Words& words) {
  const std::string local = words.size() > 2 ? words[2] : FileNameOf(words[1]);
  std::unique_ptr<Stream> data = StartTransfer("RETR " + words[1]);
  if (!data) return;
  // Opened no earlier, so that a refused transfer leaves the local file alone.
  std::ofstream file(local, std::ios::binary | std::ios::trunc);
  if (!file) {
    output_ << "Error opening local file " << local << "." << std::endl;
    data.reset();
    // The server may have sent everything; to say so would claim a file that is not there.
    replies_->Read();
    return;
  }
  std::size_t received = 0;
  for (std::string piece; !(piece = data->Receive()).empty(); received += piece.size()) {
    file.write(piece.data(), static_cast<std::streamsize>(piece.size()));
  }
  file.close();
  data.reset();
  if (!file) {
    output_ << "Error writing local file " << local << "." << std::endl;
    replies_->Read();  // as above
    return;
  }
  if (ShowReply().IsCompletion()) ShowAmount(received, "received");
}

void FtpClient::Rename(const Words& words) {
  if (Ask("RNFR " + words[1]).IsIntermediate()) Ask("RNTO " + words[2]);
}

void FtpClient::List(const Words& words) {
  std::unique_ptr<Stream> data = StartTransfer(words.size() > 1 ? "NLST " + words[1] : "NLST");
  if (!data) return;
  for (std::string piece; !(piece = data->Receive()).empty();) {
    piece.erase(std::remove(piece.begin(), piece.end(), '\r'), piece.end());
    output_ << piece;
  }
  data.reset();
  ShowReply();
}

void FtpClient::SetAscii(const Words&) { Ask("TYPE A"); }

void FtpClient::SetBinary(const Words&) { Ask("TYPE I"); }

void FtpClient::Close(const Words&) {
  Ask("QUIT");
  Disconnect();
}

void FtpClient::Bye(const Words& words) {
  if (IsConnected()) Close(words);
  done_ = true;
}

Reply FtpClient::Ask(const std::string& command) {
  if (!IsConnected()) return {};
  // When the server is gone, reading finds that out and says so.
  control_->Send(command + "\r\n");
  return ShowReply();
}

Reply FtpClient::ShowReply() {
  if (!IsConnected()) return {};
  Reply reply = replies_->Read();
  for (const std::string& line : reply.lines) output_ << line << '\n';
  output_.flush();
  if (reply.code == 0) {
    output_ << "Connection closed by remote host." << std::endl;
    Disconnect();
  }
  return reply;
}

void FtpClient::Disconnect() {
  replies_.reset();
  control_.reset();
}

// The data connection is opened towards the server, which works behind any firewall that lets the
// control connection through.
std::unique_ptr<Stream> FtpClient::StartTransfer(const std::string& command) {
  const std::optional<int> port = PassivePort(Ask("PASV"));
  if (!port) return nullptr;
  ConnectResult data = network_.Connect(host_, *port);
  if (!data.stream) {
    output_ << data.failure << std::endl;
    return nullptr;
  }
  if (!Ask(command).IsPreliminary()) return nullptr;
  return std::move(data.stream);
}

void FtpClient::ShowAmount(std::size_t bytes, std::string_view verb) {
  output_ << "ftp: " << bytes << " bytes " << verb << '.' << std::endl;
}

}  // namespace tallyrun::practice
