#include "transfer/FtpTransfer.h"

#include <utility>

#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "core/text/Conversion.h"
#include "core/text/Split.h"
#include "transfer/modShellAndWait.h"

namespace tallyrun {
namespace {

bool transferRuns = false;

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (!text.empty()) text += kLineEnd;
    text += line;
  }
  return text;
}

std::string ScriptText(const std::vector<std::string>& operationLines) {
  std::vector<std::string> lines = {std::string("open ") + kExchangeAddress, "ledgerhand", "qz5071",
                                    "prompt", "cd entry"};
  lines.insert(lines.end(), operationLines.begin(), operationLines.end());
  lines.emplace_back("bye");
  return JoinLines(lines);
}

std::string BatchText(const std::string& folder) {
  const std::string drive = folder.substr(0, 2);
  return JoinLines({drive, "cd \"" + folder + "\"", "ftp -s:ftp2KTX.txt>out.txt", "exit"});
}

}  // namespace

FtpTransfer::FtpTransfer(std::string folder) : folder_(std::move(folder)) {
  if (transferRuns) throw RuntimeError(ErrorKind::PermissionDenied);
  transferRuns = true;
}

FtpTransfer::~FtpTransfer() { transferRuns = false; }

std::string FtpTransfer::RunFtpScript(const std::vector<std::string>& operationLines) const {
  const std::string batch = folder_ + "ftp2KTX.bat";
  const std::string output = folder_ + "out.txt";
  // What an earlier client printed must not pass for what this one prints.
  DeleteMatching(output);
  WriteWholeFile(folder_ + "ftp2KTX.txt", ScriptText(operationLines));
  WriteWholeFile(batch, BatchText(folder_));
  // Quoted, so that a working folder with blanks is one word of the command line.
  ShellAndWait("\"" + batch + "\"", 0);
  return ReadWholeFile(output);
}

bool HasTransferCompleted(std::string_view clientOutput) {
  return clientOutput.find("226 Transfer complete.") != std::string_view::npos;
}

std::string SendStamp(const ClockTime& moment) {
  return FormatDdMmmYy(DateOf(moment)) + "_" + FormatHhMmSsAmPm(moment);
}

void RemoveFtpFiles(const std::string& folder) {
  DeleteMatching(folder + "ftp2KTX.*");
  DeleteMatching(folder + "out.txt");
}

}  // namespace tallyrun
