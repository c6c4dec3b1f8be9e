#include "bench/QuietPlatform.h"

#include <cstdlib>

namespace tallyrun::bench {
namespace {

class EndedProcess : public Process {
 public:
  std::optional<unsigned long> ExitCode() override { return 0; }
};

}  // namespace

MessageAnswer QuietPlatform::ShowMessage(const Message& message) {
  messages_.push_back(message);
  return message.buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok;
}

std::unique_ptr<Process> QuietPlatform::StartProcess(const std::string&, WindowMode) {
  return std::make_unique<EndedProcess>();
}

void QuietPlatform::EndProgram() { std::exit(1); }

}  // namespace tallyrun::bench
