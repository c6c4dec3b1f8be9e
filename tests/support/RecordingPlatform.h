// A stand-in for the clerk and the machine: answers what the test prepared and records what the
// program asked. Makes itself the platform in use for as long as it lives.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/Platform.h"

namespace tallyrun::testing {

// Raised by EndProgram, so that a test sees the program end.
struct ProgramEnded {};

class RecordingPlatform : public Platform {
 public:
  RecordingPlatform() { SetPlatform(this); }
  ~RecordingPlatform() override { SetPlatform(nullptr); }

  // What the test prepares.
  std::deque<MessageAnswer> answers;  // for Yes/No boxes in turn; No when none is left
  std::deque<std::optional<std::string>> files;
  std::deque<std::string> folders;
  ClockTime now{2010, 1, 6, 16, 12, 55, 0};
  std::pair<std::string, std::string> amPm{"AM", "PM"};
  std::string programFolder;
  // Runs whenever a box is shown, before it is answered.
  std::function<void(const Message&)> onMessage;
  // Makes the process for a command line; where it makes none, one that has ended with 0.
  std::function<std::unique_ptr<Process>(const std::string&, WindowMode)> onStart;
  std::function<void()> onPendingEvents;

  // What the program did.
  struct Started {
    std::string commandLine;
    WindowMode mode;
  };
  std::vector<Message> messages;
  std::vector<FileDialogRequest> fileRequests;
  struct FolderRequest {
    std::string prompt;
    std::string startFolder;
  };
  std::vector<FolderRequest> folderRequests;
  std::vector<Started> started;

  // The one box shown since the last call; fails the test when there was none or several.
  Message TakeMessage();

  MessageAnswer ShowMessage(const Message& message) override;
  ClockTime Now() override { return now; }
  std::optional<std::string> AskForFile(const FileDialogRequest& request) override;
  std::string AskForFolder(const std::string& prompt, const std::string& startFolder) override;
  std::unique_ptr<Process> StartProcess(const std::string& commandLine, WindowMode mode) override;
  void ProcessPendingEvents() override {
    if (onPendingEvents) onPendingEvents();
  }
  std::string AmPmDesignator(int hour) override { return hour < 12 ? amPm.first : amPm.second; }
  std::string ProgramFolder() override { return programFolder; }
  [[noreturn]] void EndProgram() override { throw ProgramEnded{}; }
};

}  // namespace tallyrun::testing
