// A machine with nobody before it: every question is answered Yes, every box is kept, nothing is
// shown and no process starts. The clock stands at the day that is measured.
#pragma once

#include <string>
#include <vector>

#include "core/Platform.h"

namespace tallyrun::bench {

class QuietPlatform : public Platform {
 public:
  // Reports go to `programFolder`.
  explicit QuietPlatform(std::string programFolder) : programFolder_(std::move(programFolder)) {}

  const std::vector<Message>& Messages() const { return messages_; }

  MessageAnswer ShowMessage(const Message& message) override;
  ClockTime Now() override { return {2010, 1, 5, 16, 0, 0, 0}; }
  std::optional<std::string> AskForFile(const FileDialogRequest&) override { return std::nullopt; }
  std::string AskForFolder(const std::string&, const std::string&) override { return {}; }
  std::unique_ptr<Process> StartProcess(const std::string&, WindowMode) override;
  void ProcessPendingEvents() override {}
  std::string AmPmDesignator(int hour) override { return hour < 12 ? "AM" : "PM"; }
  std::string ProgramFolder() override { return programFolder_; }
  [[noreturn]] void EndProgram() override;

 private:
  std::string programFolder_;
  std::vector<Message> messages_;
};

}  // namespace tallyrun::bench
