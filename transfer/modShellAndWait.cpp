#include "transfer/modShellAndWait.h"

#include <cmath>
#include <memory>

#include "core/Platform.h"

namespace tallyrun {
namespace {

constexpr double kSecondsPerDay = 86400;

double SecondsSinceMidnight() {
  const ClockTime now = ThePlatform().Now();
  return now.hour * 3600.0 + now.minute * 60.0 + now.second + now.millisecond / 1000.0;
}

// The end of a wait on a clock that starts again at midnight.
class WaitLimit {
 public:
  explicit WaitLimit(std::int32_t timeoutSeconds)
      : isGiven_(timeoutSeconds > 0),
        start_(std::nearbyint(SecondsSinceMidnight())),
        end_(start_ + timeoutSeconds),
        wraps_(isGiven_ && end_ >= kSecondsPerDay) {
    if (wraps_) end_ -= kSecondsPerDay;
  }

  bool IsPast() const {
    if (!isGiven_) return false;
    const double now = SecondsSinceMidnight();
    return now > end_ && (!wraps_ || now < start_);
  }

 private:
  bool isGiven_;
  double start_;
  double end_;
  bool wraps_;
};

}  // namespace

void ShellAndWait(const std::string& commandLine, std::int32_t timeoutSeconds) {
  const WaitLimit limit(timeoutSeconds);
  const std::unique_ptr<Process> process =
      ThePlatform().StartProcess(commandLine, WindowMode::Hidden);
  bool ended = false;
  do {
    ended = process->ExitCode().has_value();
    ThePlatform().ProcessPendingEvents();
  } while (!ended && !limit.IsPast());
}

}  // namespace tallyrun
