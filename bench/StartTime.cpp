// start_time ROUNDS PROGRAM CLASS [PROGRAM CLASS...]: starts each program in its own folder, in
// turn, and ends it once its window of that class is painted; one round more than asked, the first
// of which, that reads the files from the disk, does not count. Prints a line per start:
// "CLASS SECONDS", from before CreateProcess until the window is painted.
//
// Painted means, for every program alike: it waits for input for the first time (WM_PAINT comes
// before that), its window shows, neither it nor a control in it has anything left to paint, and it
// answers a message that was sent after that was seen. Nothing is asked of the program before it
// first waits, so that looking slows none of them.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr DWORD kPatience = 60'000;  // milliseconds
constexpr int kAttempts = 3;         // Wine fails to make a process once in many hundred times

[[noreturn]] void Fail(const std::string& program, const char* what) {
  std::fprintf(stderr, "start_time: %s %s (error %lu)\n", program.c_str(), what, GetLastError());
  std::exit(1);
}

HWND WindowOf(DWORD process, const std::string& windowClass) {
  HWND window = nullptr;
  while ((window = FindWindowExA(nullptr, window, windowClass.c_str(), nullptr)) != nullptr) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == process) break;
  }
  return window;
}

bool HasNothingToPaint(HWND window) {
  return !IsWindowVisible(window) || !GetUpdateRect(window, nullptr, FALSE);
}

bool IsPainted(HWND window) {
  if (!IsWindowVisible(window) || !HasNothingToPaint(window)) return false;
  bool painted = true;
  EnumChildWindows(
      window,
      [](HWND child, LPARAM all) -> BOOL {
        return *reinterpret_cast<bool*>(all) = HasNothingToPaint(child);
      },
      reinterpret_cast<LPARAM>(&painted));
  DWORD_PTR answer = 0;
  return painted && SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &answer);
}

// Seconds from the program's start to its painted window.
double Start(const std::string& program, const std::string& windowClass) {
  const std::string folder = program.substr(0, program.find_last_of('\\'));
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  auto begin = std::chrono::steady_clock::now();
  for (int attempt = 1; !CreateProcessA(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0,
                                        nullptr, folder.c_str(), &startup, &process);
       ++attempt) {
    if (attempt == kAttempts) Fail(program, "does not start");
    begin = std::chrono::steady_clock::now();
  }
  WaitForInputIdle(process.hProcess, kPatience);
  HWND window = nullptr;
  while (!IsPainted(window = WindowOf(process.dwProcessId, windowClass))) {
    if (WaitForSingleObject(process.hProcess, 1) != WAIT_TIMEOUT) Fail(program, "ends");
    if (std::chrono::steady_clock::now() - begin > std::chrono::milliseconds(kPatience)) {
      Fail(program, "shows no window");
    }
  }
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;

  PostMessageA(window, WM_CLOSE, 0, 0);
  if (WaitForSingleObject(process.hProcess, kPatience) != WAIT_OBJECT_0) {
    Fail(program, "does not end");
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return took.count();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4 || argc % 2 != 0) {
    std::fputs("usage: start_time ROUNDS PROGRAM CLASS [PROGRAM CLASS...]\n", stderr);
    return 2;
  }
  const int rounds = std::atoi(argv[1]);
  for (int round = 0; round <= rounds; ++round) {
    for (int at = 2; at < argc; at += 2) {
      const double seconds = Start(argv[at], argv[at + 1]);
      if (round > 0) std::printf("%s %.6f\n", argv[at + 1], seconds);
    }
  }
  return 0;
}
