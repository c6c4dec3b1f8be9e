// The one door to the clerk and the machine: message boxes, the clock, the system's dialogs,
// processes and pending window events. Nothing else in the program reaches them, so that a test
// can stand in for all of it. Plain files are not here: they belong to core/files/modFileIO.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/Application.h"

namespace tallyrun {

enum class MessageIcon { None, Information, Question, Critical };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

struct Message {
  std::string text;
  std::string title = kApplicationTitle;
  MessageIcon icon = MessageIcon::None;
  MessageButtons buttons = MessageButtons::Ok;

  bool operator==(const Message&) const = default;
};

// The local wall clock. Month and day count from 1, the hour from 0 to 23.
struct ClockTime {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int millisecond = 0;

  bool operator==(const ClockTime&) const = default;
};

struct FileFilter {
  std::string description;  // as shown, "Text files (*.TXT)"
  std::string pattern;      // as matched, "*.TXT"
};

struct FileDialogRequest {
  std::string title;
  std::vector<FileFilter> filters;  // the first one is selected
};

enum class WindowMode { Hidden, NormalFocus };

// A started process. Destroying the object lets go of the process and leaves it running.
class Process {
 public:
  virtual ~Process() = default;
  // The exit code, or nothing while the process still runs.
  virtual std::optional<unsigned long> ExitCode() = 0;
};

// Raised by ProcessPendingEvents when the program is ending: it unwinds whatever was waiting, and
// no handler may touch a window afterwards. It is no std::exception, so that only the outermost
// trap sees it.
struct ProgramEnding {};

class Platform {
 public:
  virtual ~Platform() = default;

  // Shows the box over the window in front, and waits for the answer.
  virtual MessageAnswer ShowMessage(const Message& message) = 0;
  virtual ClockTime Now() = 0;
  // The path that the clerk chose, or nothing when the dialog was cancelled.
  virtual std::optional<std::string> AskForFile(const FileDialogRequest& request) = 0;
  // The folder that the clerk chose, or "" when the picker was cancelled. `startFolder` is shown
  // selected when it exists.
  virtual std::string AskForFolder(const std::string& prompt, const std::string& startFolder) = 0;
  // Starts `commandLine`. Raises FileNotFound when there is no such program.
  virtual std::unique_ptr<Process> StartProcess(const std::string& commandLine,
                                                WindowMode mode) = 0;
  // Lets pending window events run and comes back when there are none left. Raises ProgramEnding
  // once the main window is gone.
  virtual void ProcessPendingEvents() = 0;
  // The locale's designator for an hour from 0 to 23, such as "AM" or "PM"; "?" where the system
  // code page can't write it.
  virtual std::string AmPmDesignator(int hour) = 0;
  // The folder of the executable, without a trailing backslash.
  virtual std::string ProgramFolder() = 0;
  // Ends the program at once; used only while no window is open.
  [[noreturn]] virtual void EndProgram() = 0;
};

// The platform in use. SetPlatform must have been called; the caller keeps ownership.
Platform& ThePlatform();
void SetPlatform(Platform* platform);

// A plain OK box.
void Tell(const std::string& text, const std::string& title, MessageIcon icon);
// A Yes/No box; true for Yes.
bool Ask(const std::string& text, const std::string& title, MessageIcon icon);

}  // namespace tallyrun
