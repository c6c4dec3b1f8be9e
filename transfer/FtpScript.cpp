#include "transfer/FtpScript.h"

namespace tallyrun {
namespace {

constexpr char kUserName[] = "ledgerhand";
constexpr char kPassword[] = "qz5071";
constexpr char kRemoteFolder[] = "entry";

// The server refuses to make a folder that exists, and the script goes on.
std::vector<std::string> EnterDayFolder(const std::string& day) {
  return {"mkdir " + day, "cd " + day};
}

}  // namespace

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) text += "\r\n";
    text += lines[i];
  }
  return text;
}

std::vector<std::string> ConnectionLines() {
  return {std::string("open ") + kExchangeAddress, kUserName, kPassword, "prompt",
          std::string("cd ") + kRemoteFolder};
}

std::string FtpScript(const std::vector<std::string>& operationLines) {
  std::vector<std::string> lines = ConnectionLines();
  lines.insert(lines.end(), operationLines.begin(), operationLines.end());
  lines.emplace_back("bye");
  return JoinLines(lines);
}

std::string SendScript(const std::string& day, const std::string& fileName) {
  std::vector<std::string> lines = EnterDayFolder(day);
  lines.push_back("put " + fileName);
  return FtpScript(lines);
}

std::string AlreadySentScript(const std::string& day, const std::string& fileName) {
  std::vector<std::string> lines = EnterDayFolder(day);
  lines.push_back("get " + fileName);
  return FtpScript(lines);
}

std::string BatchText(const std::string& workingFolder) {
  return JoinLines({workingFolder.substr(0, 2), "cd \"" + workingFolder + "\"",
                    "ftp -s:ftp2KTX.txt>out.txt", "exit"});
}

bool HasTransferCompleted(std::string_view clientOutput) {
  return clientOutput.find("226 Transfer complete.") != std::string_view::npos;
}

}  // namespace tallyrun
