#include "ui/WindowsPlatform.h"

#include <windows.h>

#include <array>

#include "ui/BoxScope.h"
#include "ui/MessageLoop.h"
#include "ui/Process.h"
#include "ui/SystemDialogs.h"

namespace tallyrun {
namespace {

UINT IconOf(const Message& message) {
  switch (message.icon) {
    case MessageIcon::Information:
      return MB_ICONINFORMATION;
    case MessageIcon::Question:
      return MB_ICONQUESTION;
    case MessageIcon::Critical:
      return MB_ICONERROR;
    case MessageIcon::None:
      break;
  }
  return 0;
}

}  // namespace

WindowsPlatform::WindowsPlatform() { SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS); }

MessageAnswer WindowsPlatform::ShowMessage(const Message& message) {
  const BoxScope scope;
  const UINT buttons = message.buttons == MessageButtons::YesNo ? MB_YESNO : MB_OK;
  const UINT modality = scope.Owner() == nullptr ? MB_TASKMODAL : MB_APPLMODAL;
  const int answer = MessageBoxA(scope.Owner(), message.text.c_str(), message.title.c_str(),
                                 buttons | IconOf(message) | modality);
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
  return tallyrun::StartProcess(commandLine, mode);
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
