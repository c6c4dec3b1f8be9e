#include "ui/CommandLine.h"

#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

struct Command {
  std::string program;    // without quotes
  std::string arguments;  // with the blank before them, or empty
};

Command SplitCommand(const std::string& commandLine, bool namesFile) {
  if (!commandLine.empty() && commandLine.front() == '"') {
    const std::size_t end = commandLine.find('"', 1);
    if (end == std::string::npos) return {commandLine.substr(1), ""};
    return {commandLine.substr(1, end - 1), commandLine.substr(end + 1)};
  }
  if (namesFile) return {commandLine, ""};
  const std::size_t blank = commandLine.find(' ');
  if (blank == std::string::npos) return {commandLine, ""};
  return {commandLine.substr(0, blank), commandLine.substr(blank)};
}

bool IsBatchFile(const std::string& program) {
  const std::string folded = ToLower(program);
  return folded.ends_with(".bat") || folded.ends_with(".cmd");
}

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

}  // namespace

std::string CommandLineToRun(const std::string& commandLine, bool namesFile,
                             const std::string& interpreter) {
  const Command command = SplitCommand(commandLine, namesFile);
  const std::string quoted = Quoted(command.program) + command.arguments;
  // With /s the interpreter takes away the outer quotes alone and keeps those of the path, so
  // that "&" or "(" in a folder's name stays a letter. /d keeps a PC's AutoRun command out.
  return IsBatchFile(command.program) ? Quoted(interpreter) + " /d /s /c " + Quoted(quoted)
                                      : quoted;
}

std::string FolderToStartIn(const std::string& commandLine, bool namesFile) {
  const std::string program = SplitCommand(commandLine, namesFile).program;
  const std::size_t slash = program.rfind('\\');
  if (!IsBatchFile(program) || slash == std::string::npos) return "";
  return program.substr(0, slash + 1);
}

}  // namespace tallyrun
