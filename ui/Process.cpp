#include "ui/Process.h"

#include <windows.h>

#include <array>

#include "core/RuntimeError.h"
#include "ui/CommandLine.h"
#include "ui/Handles.h"

namespace tallyrun {
namespace {

// How long asking for an exit code may wait, so that a caller that polls leaves the PC idle.
constexpr DWORD kPollMilliseconds = 10;

class WindowsProcess : public Process {
 public:
  explicit WindowsProcess(UniqueProcess process) : process_(std::move(process)) {}

  std::optional<unsigned long> ExitCode() override {
    const HANDLE handle = process_.Get();
    // Pending input ends the wait at once, so that the windows stay lively.
    MsgWaitForMultipleObjects(1, &handle, FALSE, kPollMilliseconds, QS_ALLINPUT);
    // Not told by the exit code alone: a process may end with the number of "still active".
    if (WaitForSingleObject(handle, 0) == WAIT_TIMEOUT) return std::nullopt;
    DWORD code = 0;
    GetExitCodeProcess(handle, &code);
    return code;
  }

 private:
  UniqueProcess process_;
};

bool NamesFile(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::string CommandInterpreter() {
  std::array<char, MAX_PATH> folder = {};
  const UINT length = GetSystemDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
  return std::string(folder.data(), length) + "\\cmd.exe";
}

}  // namespace

std::unique_ptr<Process> StartProcess(const std::string& commandLine, WindowMode mode) {
  const bool namesFile = NamesFile(commandLine);
  std::string command = CommandLineToRun(commandLine, namesFile, CommandInterpreter());
  const std::string folder = FolderToStartIn(commandLine, namesFile);
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = mode == WindowMode::Hidden ? SW_HIDE : SW_SHOWNORMAL;
  const DWORD flags = mode == WindowMode::Hidden ? CREATE_NO_WINDOW : 0;
  PROCESS_INFORMATION started = {};
  if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, flags, nullptr,
                     folder.empty() ? nullptr : folder.c_str(), &startup, &started) == FALSE) {
    const DWORD error = GetLastError();
    throw RuntimeError(error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND
                           ? ErrorKind::FileNotFound
                           : ErrorKind::InvalidCall);
  }
  const UniqueProcess thread(started.hThread);
  UniqueProcess process(started.hProcess);
  if (mode == WindowMode::NormalFocus) AllowSetForegroundWindow(started.dwProcessId);
  return std::make_unique<WindowsProcess>(std::move(process));
}

}  // namespace tallyrun
