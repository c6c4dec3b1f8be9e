#include "practice/clerk/ClerkDriver.h"

#include <algorithm>
#include <optional>

#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {

namespace {

constexpr char kDialogClass[] = "#32770";  // boxes and the system's dialogs alike
// The file dialog's name field: an edit control in the plain dialog, a combo box in the newer one.
constexpr int kFileNameEdit = 0x480;
constexpr int kFileNameCombo = 0x47C;

std::optional<int> FileNameField(const OpenWindow& dialog) {
  for (int id : {kFileNameEdit, kFileNameCombo}) {
    if (dialog.HasControl(id)) return id;
  }
  return {};
}

}  // namespace

OpenWindow WindowOfClass(const std::string& windowClass) {
  HWND window = nullptr;
  if (!Holds([&] {
        window = FindWindowA(windowClass.c_str(), nullptr);
        return window != nullptr && IsWindowVisible(window);
      })) {
    throw DriverError("No window of the class " + windowClass);
  }
  return OpenWindow(window);
}

ClerkDriver::ClerkDriver(const std::string& program) {
  const std::string folder = program.substr(0, program.find_last_of('\\'));
  std::string commandLine = "\"" + program + "\"";
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  if (!CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      folder.c_str(), &startup, &process_)) {
    throw DriverError("Can't start " + program + ": error " + std::to_string(GetLastError()));
  }
}

ClerkDriver::~ClerkDriver() {
  if (!leaveRunning_ && !HasEnded()) {
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, INFINITE);
  }
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

std::vector<HWND> ClerkDriver::Windows() const {
  struct Search {
    DWORD process;
    std::vector<HWND> found;
  } search{process_.dwProcessId, {}};
  EnumWindows(
      [](HWND window, LPARAM parameter) -> BOOL {
        auto* wanted = reinterpret_cast<Search*>(parameter);
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process == wanted->process && IsWindowVisible(window)) wanted->found.push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND ClerkDriver::FindWindowTitled(const std::string& title) const {
  for (HWND window : Windows()) {
    if (ClassOf(window) != kDialogClass && TextOf(window).starts_with(title)) return window;
  }
  return nullptr;
}

HWND ClerkDriver::FindBox() const {
  for (HWND window : Windows()) {
    if (ClassOf(window) == kDialogClass && !FileNameField(OpenWindow(window))) return window;
  }
  return nullptr;
}

HWND ClerkDriver::FindFileDialog(const std::string& title) const {
  for (HWND window : Windows()) {
    if (ClassOf(window) == kDialogClass && TextOf(window) == title &&
        FileNameField(OpenWindow(window))) {
      return window;
    }
  }
  return nullptr;
}

HWND ClerkDriver::WaitFor(const std::function<HWND()>& find, const std::string& what) const {
  HWND found = nullptr;
  Holds([&] { return (found = find()) != nullptr || HasEnded(); });
  if (found == nullptr) Fail("No " + what);
  return found;
}

OpenWindow ClerkDriver::Window(const std::string& title) const {
  return OpenWindow(WaitFor([&] { return FindWindowTitled(title); }, "window '" + title + "'"));
}

bool ClerkDriver::HasWindow(const std::string& title) const {
  return FindWindowTitled(title) != nullptr;
}

void ClerkDriver::WaitUntilClosed(const std::string& title) const {
  if (!Holds([&] { return !HasWindow(title); })) Fail("'" + title + "' stays open");
}

Box ClerkDriver::ReadBox() const {
  HWND window = WaitFor([&] { return FindBox(); }, "box");
  Box box{TextOf(window), {}, {}};
  for (HWND child : ChildrenOf(window)) {
    // The other label is the icon's and has no text.
    if (ClassOf(child) == "Static" && box.text.empty()) box.text = TextOf(child);
    if (ClassOf(child) == "Button" && IsWindowVisible(child)) {
      box.buttons.push_back(CaptionOf(child));
    }
  }
  return box;
}

void ClerkDriver::PressInBox(const std::string& button) const {
  const OpenWindow window(WaitFor([&] { return FindBox(); }, "box"));
  // A click is lost when the window manager moves the box at that moment; a clerk clicks again.
  constexpr int kSecondsPerClick = 15;
  for (int waited = 0; waited < kPatienceSeconds; waited += kSecondsPerClick) {
    window.ClickButton(button);
    if (Holds([&] { return !window.IsOpen(); }, kSecondsPerClick)) return;
  }
  Fail("'" + button + "' does not close the box");
}

void ClerkDriver::ChooseFile(const std::string& dialogTitle, const std::string& path) const {
  const OpenWindow dialog(
      WaitFor([&] { return FindFileDialog(dialogTitle); }, "dialog '" + dialogTitle + "'"));
  dialog.Enter(*FileNameField(dialog), path);
  dialog.ClickButton("Open");
  if (!Holds([&] { return !dialog.IsOpen(); })) Fail("The dialog does not take '" + path + "'");
}

bool ClerkDriver::WaitUntilPainted() const {
  constexpr int kSeconds = 10;
  const auto painted = [](HWND window) {
    return !IsWindowVisible(window) || !GetUpdateRect(window, nullptr, FALSE);
  };
  return Holds(
      [&] {
        HWND front = GetForegroundWindow();
        if (front == nullptr || front == GetDesktopWindow()) return false;
        const std::vector<HWND> windows = Windows();
        return std::all_of(windows.begin(), windows.end(), [&](HWND window) {
          const std::vector<HWND> children = ChildrenOf(window);
          return painted(window) && std::all_of(children.begin(), children.end(), painted);
        });
      },
      kSeconds);
}

DWORD ClerkDriver::WaitForEnd() {
  if (WaitForSingleObject(process_.hProcess, kPatienceSeconds * 1000) != WAIT_OBJECT_0) {
    Fail("The program does not end");
  }
  DWORD code = 0;
  GetExitCodeProcess(process_.hProcess, &code);
  return code;
}

bool ClerkDriver::HasEnded() const {
  return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0;
}

void ClerkDriver::Fail(const std::string& what) const {
  std::string report = what + ". On the screen:";
  if (HasEnded()) report += " nothing, the program has ended";
  for (HWND window : Windows()) report += "\n" + OpenWindow(window).Describe();
  throw DriverError(report);
}

}  // namespace tallyrun::testing
