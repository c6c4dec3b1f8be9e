#include "tests/support/RecordingPlatform.h"

#include <stdexcept>

namespace tallyrun::testing {
namespace {

class EndedProcess : public Process {
 public:
  std::optional<unsigned long> ExitCode() override { return 0; }
};

template <class T>
T TakeFront(std::deque<T>& prepared, T otherwise) {
  if (prepared.empty()) return otherwise;
  T front = std::move(prepared.front());
  prepared.pop_front();
  return front;
}

}  // namespace

Message RecordingPlatform::TakeMessage() {
  if (messages.size() != 1) {
    throw std::logic_error(std::to_string(messages.size()) + " boxes instead of one");
  }
  Message message = messages.back();
  messages.clear();
  return message;
}

MessageAnswer RecordingPlatform::ShowMessage(const Message& message) {
  messages.push_back(message);
  if (onMessage) onMessage(message);
  if (message.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
  return TakeFront(answers, MessageAnswer::No);
}

std::optional<std::string> RecordingPlatform::AskForFile(const FileDialogRequest& request) {
  fileRequests.push_back(request);
  return TakeFront<std::optional<std::string>>(files, std::nullopt);
}

std::string RecordingPlatform::AskForFolder(const std::string& prompt,
                                            const std::string& startFolder) {
  folderRequests.push_back({prompt, startFolder});
  return TakeFront<std::string>(folders, "");
}

std::unique_ptr<Process> RecordingPlatform::StartProcess(const std::string& commandLine,
                                                         WindowMode mode) {
  started.push_back({commandLine, mode});
  std::unique_ptr<Process> process = onStart ? onStart(commandLine, mode) : nullptr;
  return process ? std::move(process) : std::make_unique<EndedProcess>();
}

}  // namespace tallyrun::testing
