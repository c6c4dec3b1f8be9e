// Says when a window that shows a long operation is due for another repaint: sixty times a
// second, however fast the operation runs.
#pragma once

#include <chrono>
#include <optional>

namespace tallyrun {

class FramePacer {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::microseconds kFrame{1'000'000 / 60};

  // True the first time and whenever a frame has passed since it last was.
  bool IsDue(Clock::time_point now) {
    if (last_ && now - *last_ < kFrame) return false;
    last_ = now;
    return true;
  }

 private:
  std::optional<Clock::time_point> last_;
};

}  // namespace tallyrun
