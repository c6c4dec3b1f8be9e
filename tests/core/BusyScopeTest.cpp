#include <gtest/gtest.h>

#include "core/BusyScope.h"
#include "tests/support/FakeBusyWindow.h"

namespace tallyrun::testing {
namespace {

TEST(BusyScopeTest, EachScopeShowsItsSignsAndTheWindowComesBackToItsOwn) {
  FakeBusyWindow window;
  const auto looks = [&](const std::string& caption, PointerShape pointer) {
    EXPECT_EQ(window.caption, caption);
    EXPECT_EQ(window.pointer, pointer);
  };
  window.SetCaption("A");
  looks("A", PointerShape::Normal);
  {
    BusyScope outer(window);
    outer.Show("...sending");
    {
      BusyScope inner(window);
      looks("A...sending", PointerShape::Hourglass);
      inner.Show("checking");
      window.SetCaption("B");
      looks("checking", PointerShape::Hourglass);
      inner.End();
      looks("B", PointerShape::Normal);
      inner.Leave();  // not the outermost
    }
    looks("B...sending", PointerShape::Hourglass);
    outer.ShowPointer(PointerShape::Normal);
    looks("B...sending", PointerShape::Normal);
    outer.Show("...failing");
    outer.Leave();
  }
  looks("B...failing", PointerShape::Hourglass);
  { const BusyScope next(window); }  // comes back to what it found
  looks("B...failing", PointerShape::Normal);
}

}  // namespace
}  // namespace tallyrun::testing
