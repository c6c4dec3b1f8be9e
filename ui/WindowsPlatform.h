// The door to the clerk and the machine, on Windows. Boxes and dialogs stand over the form in
// front and disable the others.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "core/Platform.h"

namespace tallyrun {

class WindowsPlatform : public Platform {
 public:
  // From now on the system shows no box of its own for a drive without a disk.
  WindowsPlatform();

  MessageAnswer ShowMessage(const Message& message) override;
  ClockTime Now() override;
  std::optional<std::string> AskForFile(const FileDialogRequest& request) override;
  std::string AskForFolder(const std::string& prompt, const std::string& startFolder) override;
  // Batch files run through the command interpreter, whatever blanks their path has.
  std::unique_ptr<Process> StartProcess(const std::string& commandLine, WindowMode mode) override;
  void ProcessPendingEvents() override;
  std::string AmPmDesignator(int hour) override;
  std::string ProgramFolder() override;
  [[noreturn]] void EndProgram() override;
};

}  // namespace tallyrun
