#include <gtest/gtest.h>

#include "core/BoIdFormat.h"
#include "core/Settings.h"
#include "tests/support/RecordingPlatform.h"

namespace tallyrun::testing {
namespace {

TEST(BoIdFormat, CompletesOnTheLeftFromTheFormat) {
  Settings.boidFormat = "1201950000000000";
  const struct {
    const char* typed;
    const char* completed;
    bool tooLong;
  } cases[] = {
      {"1234", "1201950000001234", false},
      {"", "", false},
      {"x", "120195000000000x", false},
      {"9999999999999999", "9999999999999999", false},
      {"99999999999999999", "99999999999999999", true},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(CompleteBoId(each.typed), each.completed);
    EXPECT_EQ(IsBoIdTooLong(each.typed), each.tooLong) << each.typed;
  }
  // Settings that were never loaded: nothing to complete with, and any text is too long.
  Settings = {};
  EXPECT_EQ(CompleteBoId("1234"), "1234");
  EXPECT_TRUE(IsBoIdTooLong("1"));
}

TEST(BoIdFormat, TellsTheFormatsLength) {
  RecordingPlatform platform;
  Settings.boidFormat = "1201950000000000";
  TellBoIdTooLong();
  EXPECT_EQ(platform.TakeMessage(), (Message{"BOID length can not be greater than 16.", "Tallyrun",
                                             MessageIcon::Critical}));
  Settings = {};
}

}  // namespace
}  // namespace tallyrun::testing
