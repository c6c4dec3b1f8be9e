// What each control tells its form, which handler a key reaches, and what keys do by themselves.
#include <array>

#include "tests/ui/TryForm.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ControlsTest : TryFormTest {
  ControlsTest() { form.Show(); }
};

TEST_F(ControlsTest, ATipComesWithTheMouseAndFollowsItsText) {
  const auto tip = [&] {
    HWND tips = nullptr;
    do tips = FindWindowExA(nullptr, tips, TOOLTIPS_CLASSA, nullptr);
    while (tips != nullptr && GetWindow(tips, GW_OWNER) != form.Handle());
    char text[80] = "no tip";
    TOOLINFOA tool = {};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = form.Handle();
    tool.uId = reinterpret_cast<UINT_PTR>(form.button.Handle());
    tool.lpszText = text;
    SendMessageA(tips, TTM_GETTEXTA, sizeof text, reinterpret_cast<LPARAM>(&tool));
    return std::string(text);
  };
  const auto comeOverButton = [&] {
    SendMessageA(form.button.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(form.button.Handle()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  };
  const auto movePointer = [] {
    POINT at = {};
    GetCursorPos(&at);
    SetCursorPos(at.x + 1, at.y);
  };
  comeOverButton();  // as when a window appears under a pointer at rest
  EXPECT_EQ(tip(), "no tip");
  movePointer();
  comeOverButton();
  EXPECT_EQ(tip(), "Tip of the button");
  form.button.SetToolTip("Another tip");
  EXPECT_EQ(tip(), "Another tip");
  form.Unload();
  form.Show();
  movePointer();
  comeOverButton();
  EXPECT_EQ(tip(), "Tip of the button");
}

TEST_F(ControlsTest, AnOptionTellsOfTurningOnAndOfNothingElse) {
  Log(form.optFirst.Click, "first");
  Log(form.optSecond.Click, "second");
  form.optFirst.TurnOn();
  form.optFirst.TurnOn();
  EXPECT_THAT(log, ElementsAre("first"));
  ClickOn(form.optFirst);
  EXPECT_THAT(log, ElementsAre("first"));
  ClickOn(form.optSecond);
  EXPECT_THAT(log, ElementsAre("first", "second"));
  EXPECT_FALSE(form.optFirst.Value());
  form.optFirst.TurnOn();
  EXPECT_FALSE(form.optSecond.Value());
  EXPECT_THAT(log, ElementsAre("first", "second", "first"));
}

TEST_F(ControlsTest, AnOptionCanBeTurnedBackInItsHandler) {
  // As a refused change of mode does it.
  form.optFirst.TurnOn();
  Log(form.optFirst.Click, "first");
  form.optSecond.Click.Set([&] {
    log.push_back("second");
    form.optFirst.TurnOn();
    form.optFirst.SetFocus();
  });
  ClickOn(form.optSecond);
  EXPECT_THAT(log, ElementsAre("second", "first"));
  EXPECT_TRUE(form.optFirst.Value());
  EXPECT_FALSE(form.optSecond.Value());
  EXPECT_TRUE(form.optFirst.HasFocus());
}

TEST_F(ControlsTest, ADatePickerTellsOfADateOnceHoweverOftenTheSystemDoes) {
  Log(form.date.Change, "change");
  form.date.SetValue({2010, 1, 5});
  PickDay(form.date, {2010, 1, 5});
  EXPECT_THAT(log, IsEmpty());
  PickDay(form.date, {2010, 12, 31});
  EXPECT_THAT(log, ElementsAre("change"));
}

TEST_F(ControlsTest, ADatePickerShowsTheEnglishMonth) {
  char text[16] = {};
  NMDATETIMEFORMATA format = {};
  format.nmhdr = {form.date.Handle(), 8, static_cast<UINT>(DTN_FORMATA)};
  format.pszFormat = "XXX";
  format.st.wMonth = 10;
  format.pszDisplay = text;
  SendMessageA(form.Handle(), WM_NOTIFY, 8, reinterpret_cast<LPARAM>(&format));
  EXPECT_STREQ(format.pszDisplay, "Oct");
}

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

TEST_F(KeysTest, AClipboardKeyIsOneByWhatWasHeldWhenItWentDown) {
  const auto send = [](const Control& control, UINT message, int held) {
    std::array<BYTE, 256> state = {};
    if (held != 0) state[static_cast<std::size_t>(held)] = 0x80;
    SetKeyboardState(state.data());
    SendMessageA(control.Handle(), message, VK_INSERT, 0);
    state = {};
    SetKeyboardState(state.data());
  };
  const struct {
    Control& control;
    int heldDown, heldUp;
    bool isHeard;
  } cases[] = {
      {form.editor, VK_SHIFT, 0, false}, {form.editor, VK_CONTROL, 0, false},
      {form.editor, 0, VK_SHIFT, true},  {form.editor, 0, 0, true},
      {form.date, VK_SHIFT, 0, false},   {form.button, VK_SHIFT, VK_SHIFT, true},
  };
  for (const auto& each : cases) {
    log.clear();
    send(each.control, WM_KEYDOWN, each.heldDown);
    send(each.control, WM_KEYUP, each.heldUp);
    EXPECT_EQ(log.size(), each.isHeard ? 1u : 0u) << each.heldDown << " " << each.heldUp;
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
  form.optSecond.TurnOn();
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
