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

struct ShellAndWaitTest : ::testing::Test {
  ShellAndWaitTest() {
    platform.onStart = [this](const std::string&, WindowMode) {
      return std::make_unique<CountedProcess>(pollsLeft);
    };
  }
  RecordingPlatform platform;
  int pollsLeft = 0;
};

TEST_F(ShellAndWaitTest, WaitsForTheProcessAndLetsEventsRunEachTurn) {
  int turns = 0;
  platform.onPendingEvents = [&] { ++turns; };
  for (const int timeoutSeconds : {0, 1000}) {
    pollsLeft = 3;
    ShellAndWait("x", timeoutSeconds);
  }
  EXPECT_EQ(turns, 8);
  EXPECT_EQ(platform.started[0].mode, WindowMode::Hidden);
  pollsLeft = 3;
  platform.onPendingEvents = [] { throw ProgramEnding{}; };
  EXPECT_THROW(ShellAndWait("x", 0), ProgramEnding);
}

// A time of day in milliseconds since midnight.
ClockTime TimeOfDay(int milliseconds) {
  const int seconds = milliseconds / 1000;
  return {2010, 1, 5, seconds / 3600, seconds / 60 % 60, seconds % 60, milliseconds % 1000};
}

TEST_F(ShellAndWaitTest, ATimeoutEndsTheWaitPastMidnightToo) {
  const struct {
    int start, timeoutSeconds, step, end;  // all but the timeout in milliseconds
  } cases[] = {
      {10'000, 5, 500, 15'500},  // strictly past the end
      {10'600, 5, 100, 16'100},  // the start rounds to the nearest second,
      {10'500, 5, 100, 15'100},  // half a second to the even one
      {86'000'000, 1000, 100'000, 700'000},
      {86'000'000, 400, 100, 100},  // midnight exactly
      {86'000'000, 399, 100, 86'399'100},
  };
  for (const auto& each : cases) {
    constexpr int kDay = 86'400'000;
    pollsLeft = kDay;
    int time = each.start;
    platform.now = TimeOfDay(time);
    platform.onPendingEvents = [&] {
      time = (time + each.step) % kDay;
      platform.now = TimeOfDay(time);
    };
    ShellAndWait("x", each.timeoutSeconds);
    EXPECT_EQ(time, each.end);
  }
}

}  // namespace
}  // namespace tallyrun::testing
