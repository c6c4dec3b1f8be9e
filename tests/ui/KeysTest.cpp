// Which handler a key reaches, and what keys do by themselves.
#include "tests/ui/TryForm.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

struct KeysTest : TryFormTest {
  KeysTest() {
    Log(form.KeyUp, "form up ");
    form.Show();
    Pump();
  }
};

TEST_F(KeysTest, AReleaseReachesTheControlsHandlerOrTheFormsOnce) {
  Log(form.button.KeyUp, "button up ");
  Log(form.date.KeyUp, "date up ");
  const struct {
    Control& control;
    int key;
    std::vector<std::string> heard;
  } cases[] = {
      {form.button, VK_INSERT, {"button up 45"}},
      {form.button, VK_DELETE, {"button up 46"}},
      {form.check, VK_INSERT, {"form up 45"}},
      {form.check, VK_DELETE, {"form up 46"}},
      {form.list, VK_DELETE, {"form up 46"}},
      {form.combo, VK_INSERT, {"form up 45"}},
      {form.combo, VK_DELETE, {"form up 46"}},
      // DELETE edits the text of these, whoever listens.
      {form.editor, VK_INSERT, {"form up 45"}},
      {form.editor, VK_DELETE, {}},
      {form.date, VK_INSERT, {"date up 45"}},
      {form.date, VK_DELETE, {}},
  };
  for (const auto& c : cases) {
    c.control.SetFocus();
    log.clear();
    PressKey(c.key);
    EXPECT_EQ(log, c.heard) << "key " << c.key << " in control " << c.control.Id();
  }
}

TEST_F(KeysTest, EnterAndEscapeReachTheControlAndPressNothing) {
  int clicks = 0;
  form.onClick = [&] { ++clicks; };
  form.button.SetFocus();
  PressKey(VK_RETURN);
  PressKey(VK_ESCAPE);
  EXPECT_EQ(clicks, 0);
  EXPECT_TRUE(form.IsLoaded());
  PressKey(VK_SPACE);
  EXPECT_EQ(clicks, 1);

  Log(form.editor.KeyPress, "press ");
  Log(form.date.KeyPress, "date press ");
  form.editor.SetFocus();
  form.editor.SetText("abc");
  log.clear();
  PressKey(VK_RETURN);
  PressKey(VK_ESCAPE);
  EXPECT_THAT(log, ElementsAre("press 13", "form up 13", "press 27", "form up 27"));
  EXPECT_EQ(form.editor.Text(), "abc");
  EXPECT_EQ(clicks, 1);

  form.date.SetFocus();
  log.clear();
  PressKey(VK_RETURN);
  EXPECT_THAT(log, ElementsAre("date press 13", "form up 13"));
}

TEST_F(KeysTest, TabReachesEveryControlInOrderAndOneOptionOfAGroup) {
  form.optSecond.SetValue(true);
  form.editor.SetFocus();
  std::vector<int> visited;
  for (int step = 0; step < 7; ++step) {
    visited.push_back(GetDlgCtrlID(GetFocus()));
    PressKey(VK_TAB);
  }
  EXPECT_THAT(visited, ElementsAre(1, 2, 4, 5, 6, 7, 8));
  EXPECT_TRUE(form.editor.HasFocus());
}

}  // namespace
}  // namespace tallyrun::testing
