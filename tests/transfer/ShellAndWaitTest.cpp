#include <gtest/gtest.h>

#include "tests/support/RecordingPlatform.h"
#include "transfer/modShellAndWait.h"

namespace tallyrun::testing {
namespace {

struct CountedProcess : Process {
  explicit CountedProcess(int& left) : polls(left) {}
  std::optional<unsigned long> ExitCode() override {
    return polls-- > 0 ? std::optional<unsigned long>() : 1;
  }
  int& polls;  // it ends when this comes to 0
};

// A time of day in milliseconds since midnight.
ClockTime TimeOfDay(int milliseconds) {
  const int seconds = milliseconds / 1000;
  return {2010, 1, 5, seconds / 3600, seconds / 60 % 60, seconds % 60, milliseconds % 1000};
}

TEST(ShellAndWaitTest, LetsEventsRunUntilTheProcessEndsOrTheTimeIsUpPastMidnightToo) {
  constexpr int kDay = 86'400'000;
  const struct {
    int start, timeoutSeconds, step, end;  // all but the timeout in milliseconds
    int polls = kDay;                      // until the process ends
  } cases[] = {
      {0, 0, 500, 2'000, 3},
      {0, 1000, 500, 2'000, 3},
      {10'000, 5, 500, 15'500},  // strictly past the end
      {10'600, 5, 100, 16'100},  // the start rounds to the nearest second,
      {10'500, 5, 100, 15'100},  // half a second to the even one
      {86'000'000, 1000, 100'000, 700'000},
      {86'000'000, 400, 100, 100},  // midnight exactly
      {86'000'000, 399, 100, 86'399'100},
  };
  for (const auto& each : cases) {
    RecordingPlatform platform;
    int polls = each.polls;
    platform.onStart = [&](auto&&...) { return std::make_unique<CountedProcess>(polls); };
    int time = each.start;
    platform.now = TimeOfDay(time);
    platform.onPendingEvents = [&] {
      time = (time + each.step) % kDay;
      platform.now = TimeOfDay(time);
    };
    ShellAndWait("x", each.timeoutSeconds);
    EXPECT_EQ(time, each.end);
    EXPECT_EQ(platform.started[0].mode, WindowMode::Hidden);
  }
}

}  // namespace
}  // namespace tallyrun::testing
