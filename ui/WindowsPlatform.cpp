#include "ui/WindowsPlatform.h"

#include <windows.h>

#include <array>

#include "core/RuntimeError.h"
#include "ui/BoxScope.h"
#include "ui/CommandLine.h"
#include "ui/Handles.h"
#include "ui/MessageLoop.h"
#include "ui/SystemDialogs.h"

namespace tallyrun {
namespace {

// How long asking for an exit code may wait, so that a caller that polls leaves the PC idle.
constexpr DWORD kPollMilliseconds = 10;

UINT StyleOf(const Message& message) {
  UINT style = message.buttons == MessageButtons::YesNo ? MB_YESNO : MB_OK;
  switch (message.icon) {
    case MessageIcon::None:
      break;
    case MessageIcon::Information:
      style |= MB_ICONINFORMATION;
      break;
    case MessageIcon::Question:
      style |= MB_ICONQUESTION;
      break;
    case MessageIcon::Critical:
      style |= MB_ICONERROR;
      break;
  }
  return style;
}

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

WindowsPlatform::WindowsPlatform() { SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS); }

MessageAnswer WindowsPlatform::ShowMessage(const Message& message) {
  const BoxScope scope;
  const UINT modality = scope.Owner() == nullptr ? MB_TASKMODAL : MB_APPLMODAL;
  const int answer = MessageBoxA(scope.Owner(), message.text.c_str(), message.title.c_str(),
                                 StyleOf(message) | modality);
  if (message.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
  return answer == IDYES ? MessageAnswer::Yes : MessageAnswer::No;
}

ClockTime WindowsPlatform::Now() {
  SYSTEMTIME now = {};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

std::optional<std::string> WindowsPlatform::AskForFile(const FileDialogRequest& request) {
  const BoxScope scope;
  return ChooseFile(scope.Owner(), request);
}

std::string WindowsPlatform::AskForFolder(const std::string& prompt,
                                          const std::string& startFolder) {
  const BoxScope scope;
  return ChooseFolder(scope.Owner(), prompt, startFolder);
}

std::unique_ptr<Process> WindowsPlatform::StartProcess(const std::string& commandLine,
                                                       WindowMode mode) {
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

void WindowsPlatform::ProcessPendingEvents() { PumpMessages(); }

std::string WindowsPlatform::AmPmDesignator(int hour) {
  std::array<wchar_t, 32> wide = {};
  std::array<wchar_t, 32> readBack = {};
  std::array<char, 128> designator = {};
  GetLocaleInfoW(LOCALE_USER_DEFAULT, hour < 12 ? LOCALE_S1159 : LOCALE_S2359, wide.data(),
                 static_cast<int>(wide.size()));
  // A character that the code page lacks becomes one that looks alike, or "?".
  WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, designator.data(),
                      static_cast<int>(designator.size()), nullptr, nullptr);
  MultiByteToWideChar(CP_ACP, 0, designator.data(), -1, readBack.data(),
                      static_cast<int>(readBack.size()));
  return wide == readBack ? designator.data() : "?";
}

std::string WindowsPlatform::ProgramFolder() {
  std::string path(MAX_PATH, '\0');
  for (;;) {
    const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      break;
    }
    path.resize(path.size() * 2);
  }
  return path.substr(0, path.find_last_of('\\'));
}

void WindowsPlatform::EndProgram() { ExitProcess(0); }

}  // namespace tallyrun
