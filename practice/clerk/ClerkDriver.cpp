#include "practice/clerk/ClerkDriver.h"

#include <algorithm>

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

std::optional<HWND> ClerkDriver::FindWindowTitled(const std::string& title) const {
  for (HWND window : Windows()) {
    if (ClassOf(window) != kDialogClass && TextOf(window).starts_with(title)) return window;
  }
  return {};
}

OpenWindow ClerkDriver::Window(const std::string& title) const {
  std::optional<HWND> window;
  if (!Holds([&] { return (window = FindWindowTitled(title)).has_value() || HasEnded(); }) ||
      !window) {
    throw DriverError("No window '" + title + "'. On the screen:\n" + DescribeScreen());
  }
  return OpenWindow(*window);
}

bool ClerkDriver::HasWindow(const std::string& title) const {
  return FindWindowTitled(title).has_value();
}

void ClerkDriver::WaitUntilClosed(const std::string& title) const {
  if (!Holds([&] { return !FindWindowTitled(title); })) {
    throw DriverError("'" + title + "' stays open. On the screen:\n" + DescribeScreen());
  }
}

std::optional<HWND> ClerkDriver::FindBox() const {
  for (HWND window : Windows()) {
    if (ClassOf(window) == kDialogClass && !FileNameField(OpenWindow(window))) return window;
  }
  return {};
}

HWND ClerkDriver::WaitForBox() const {
  std::optional<HWND> box;
  if (!Holds([&] { return (box = FindBox()).has_value() || HasEnded(); }) || !box) {
    throw DriverError("No box. On the screen:\n" + DescribeScreen());
  }
  return *box;
}

Box ClerkDriver::ReadBox() const {
  HWND window = WaitForBox();
  Box box{TextOf(window), {}, {}};
  for (HWND child : ChildrenOf(window)) {
    // The other label is the icon's and has no text.
    if (ClassOf(child) == "Static" && box.text.empty()) box.text = TextOf(child);
    if (ClassOf(child) == "Button" && IsWindowVisible(child)) {
      std::string caption = TextOf(child);
      caption.erase(std::remove(caption.begin(), caption.end(), '&'), caption.end());
      box.buttons.push_back(caption);
    }
  }
  return box;
}

Box ClerkDriver::Answer(const std::string& button) {
  const OpenWindow window(WaitForBox());
  Box box = ReadBox();
  // A click is lost when the window manager moves the box at that moment; a clerk clicks again.
  constexpr int kSecondsPerClick = 15;
  for (int waited = 0; waited < kPatienceSeconds; waited += kSecondsPerClick) {
    window.ClickButton(button);
    if (Holds([&] { return !window.IsOpen(); }, kSecondsPerClick)) return box;
  }
  throw DriverError("'" + button + "' does not close the box. On the screen:\n" + DescribeScreen());
}

OpenWindow ClerkDriver::WaitForFileDialog(const std::string& title) const {
  std::optional<OpenWindow> dialog;
  const bool found = Holds([&] {
    for (HWND window : Windows()) {
      if (ClassOf(window) == kDialogClass && TextOf(window) == title &&
          FileNameField(OpenWindow(window))) {
        dialog = OpenWindow(window);
      }
    }
    return dialog.has_value() || HasEnded();
  });
  if (!found || !dialog) {
    throw DriverError("No dialog '" + title + "'. On the screen:\n" + DescribeScreen());
  }
  return *dialog;
}

void ClerkDriver::ChooseFile(const std::string& dialogTitle, const std::string& path) {
  const OpenWindow dialog = WaitForFileDialog(dialogTitle);
  dialog.Enter(*FileNameField(dialog), path);
  dialog.ClickButton("Open");
  if (!Holds([&] { return !dialog.IsOpen(); })) {
    throw DriverError("The dialog does not take '" + path + "'. On the screen:\n" +
                      DescribeScreen());
  }
}

void ClerkDriver::CancelFile(const std::string& dialogTitle) {
  const OpenWindow dialog = WaitForFileDialog(dialogTitle);
  dialog.ClickButton("Cancel");
  Holds([&] { return !dialog.IsOpen(); });
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
    throw DriverError("The program does not end. On the screen:\n" + DescribeScreen());
  }
  DWORD code = 0;
  GetExitCodeProcess(process_.hProcess, &code);
  return code;
}

bool ClerkDriver::HasEnded() const {
  return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0;
}

std::string ClerkDriver::DescribeScreen() const {
  if (HasEnded()) return "(the program has ended)";
  std::string text;
  for (HWND window : Windows()) text += OpenWindow(window).Describe() + "\n";
  return text.empty() ? "(no window)" : text;
}

}  // namespace tallyrun::testing
