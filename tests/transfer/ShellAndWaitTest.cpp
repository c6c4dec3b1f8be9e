#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "tests/support/RecordingPlatform.h"
#include "transfer/modShellAndWait.h"

namespace tallyrun {
namespace {

using testing::RecordingPlatform;

// Ends when `polls` comes to 0.
class CountedProcess : public Process {
 public:
  explicit CountedProcess(int& polls) : polls_(polls) {}
  std::optional<unsigned long> ExitCode() override {
    if (polls_ == 0) return 1;
    --polls_;
    return std::nullopt;
  }

 private:
  int& polls_;
};

class ShellAndWaitTest : public ::testing::Test {
 protected:
  ShellAndWaitTest() {
    platform.onStart = [this](const std::string&, WindowMode) {
      return std::make_unique<CountedProcess>(pollsLeft);
    };
    platform.onPendingEvents = [this] { ++turns; };
  }

  RecordingPlatform platform;
  int pollsLeft = 0;
  int turns = 0;
};

TEST_F(ShellAndWaitTest, WaitsForTheProcessAndLetsEventsRunEachTurn) {
  for (const int timeoutSeconds : {0, 1000}) {
    pollsLeft = 3;
    turns = 0;
    ShellAndWait("\"C:\\a b\\x.bat\"", timeoutSeconds);
    EXPECT_EQ(pollsLeft, 0);
    EXPECT_EQ(turns, 4);
  }
  EXPECT_EQ(platform.started[0].commandLine, "\"C:\\a b\\x.bat\"");
  EXPECT_EQ(platform.started[0].mode, WindowMode::Hidden);
}

TEST_F(ShellAndWaitTest, WhatEndsTheProgramOrTheStartIsPassedOn) {
  pollsLeft = 3;
  platform.onPendingEvents = [] { throw ProgramEnding{}; };
  EXPECT_THROW(ShellAndWait("x", 0), ProgramEnding);
  platform.onStart = [](const std::string&, WindowMode) -> std::unique_ptr<Process> {
    throw RuntimeError(ErrorKind::FileNotFound);
  };
  EXPECT_THROW(ShellAndWait("x", 0), RuntimeError);
}

// A time of day in milliseconds since midnight.
ClockTime TimeOfDay(int milliseconds) {
  const int seconds = milliseconds / 1000;
  return {2010, 1, 5, seconds / 3600, seconds / 60 % 60, seconds % 60, milliseconds % 1000};
}

struct TimeoutCase {
  const char* name;
  int start;  // milliseconds since midnight
  int timeoutSeconds;
  int step;  // milliseconds that each turn takes
  int end;   // the time of day at which the wait is over, as its last turn saw it
};

TEST_F(ShellAndWaitTest, ATimeoutEndsTheWaitPastMidnightToo) {
  const TimeoutCase cases[] = {
      {"strictly past the end", 10'000, 5, 500, 15'500},
      {"the start rounds to the nearest second", 10'600, 5, 100, 16'100},
      {"and half a second to the even one", 10'500, 5, 100, 15'100},
      {"past midnight", 86'000'000, 1000, 100'000, 700'000},
      {"at midnight exactly", 86'000'000, 400, 100, 100},
      {"a second before midnight", 86'000'000, 399, 100, 86'399'100},
  };
  for (const TimeoutCase& each : cases) {
    SCOPED_TRACE(each.name);
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
}  // namespace tallyrun
