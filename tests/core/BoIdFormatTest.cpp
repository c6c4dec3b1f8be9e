#include "core/BoIdFormat.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

using BoIdFormat = ProgramFixture;

TEST_F(BoIdFormat, CompletesOnTheLeftFromTheFormat) {
  const std::pair<const char*, const char*> cases[] = {{"1234", "1201950000001234"},
                                                       {"", ""},
                                                       {"x", "120195000000000x"},
                                                       {"9999999999999999", "9999999999999999"}};
  for (const auto& [typed, completed] : cases) {
    EXPECT_EQ(CompleteBoId(typed), completed);
    EXPECT_FALSE(IsBoIdTooLong(typed)) << typed;
  }
  EXPECT_TRUE(IsBoIdTooLong("99999999999999999"));
  // Settings that were never loaded: nothing to complete with, and any text is too long.
  Settings = {};
  EXPECT_EQ(CompleteBoId("1234"), "1234");
  EXPECT_TRUE(IsBoIdTooLong("1"));
}

}  // namespace
}  // namespace tallyrun::testing
