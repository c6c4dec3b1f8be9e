// What every control owes its form: its tip, who has the focus and who is told (only another
// control of the program takes it), and where keys lead.
#include "tests/ui/TryForm.h"
#include "ui/WindowsPlatform.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

struct ControlTest : TryFormTest {
  ControlTest() {
    form.Show();
    form.editor.SetFocus();
    Pump();
    form.editor.LostFocus.Set([this] { log.push_back("editor lost"); });
    form.date.LostFocus.Set([this] { log.push_back("date lost"); });
  }
};

TEST_F(ControlTest, ATipComesWithTheMouseAndFollowsItsText) {
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
  comeOverButton();  // as when a window appears under a pointer at rest
  EXPECT_EQ(tip(), "no tip");
  POINT at = {};
  GetCursorPos(&at);
  SetCursorPos(at.x + 1, at.y);
  comeOverButton();
  EXPECT_EQ(tip(), "Tip of the button");
  form.button.SetToolTip("Another tip");
  EXPECT_EQ(tip(), "Another tip");
}

TEST_F(ControlTest, ADatePickerShowsTheEnglishMonth) {
  char text[16] = {};
  NMDATETIMEFORMATA format = {};
  format.nmhdr = {form.date.Handle(), 5, static_cast<UINT>(DTN_FORMATA)};
  format.pszFormat = "XXX";
  format.st.wMonth = 10;
  format.pszDisplay = text;
  SendMessageA(form.Handle(), WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&format));
  EXPECT_STREQ(format.pszDisplay, "Oct");
}

TEST_F(ControlTest, AClipboardKeyIsOneByWhatWasHeldWhenItWentDown) {
  bool isHeard = false;
  form.KeyUp.Set([&](KeyEvent&) { isHeard = true; });
  const std::tuple<Control&, std::vector<int>, std::vector<int>, bool> cases[] = {
      {form.editor, {VK_SHIFT}, {}, false}, {form.editor, {VK_CONTROL}, {}, false},
      {form.editor, {}, {VK_SHIFT}, true},  {form.editor, {}, {}, true},
      {form.date, {VK_SHIFT}, {}, false},   {form.button, {VK_SHIFT}, {VK_SHIFT}, true},
  };
  for (const auto& [control, heldDown, heldUp, expected] : cases) {
    isHeard = false;
    SendKey(control, WM_KEYDOWN, VK_INSERT, heldDown);
    SendKey(control, WM_KEYUP, VK_INSERT, heldUp);
    EXPECT_EQ(isHeard, expected) << control.Id() << heldDown.size() << heldUp.size();
  }
}

TEST_F(ControlTest, TabReachesEveryControlInOrderAndEnterAndEscapePressNothing) {
  int clicks = 0;
  form.onClick = [&] { ++clicks; };
  form.optSecond.TurnOn();
  std::vector<int> visited;
  for (int step = 0; step < 6; ++step) {
    visited.push_back(GetDlgCtrlID(GetFocus()));
    for (const int key : {VK_RETURN, VK_ESCAPE, VK_TAB}) PressKey(key);
  }
  EXPECT_THAT(visited, ElementsAre(1, 2, 4, 5, 6, 1)) << "one option of a group";
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_EQ(clicks, 0);
}

TEST_F(ControlTest, AMessageBoxTakesNoFocusAndDisablesEveryForm) {
  TryForm other("frmTryOther");
  other.Load();
  const Meanwhile answer([&] {
    const HWND box = FindWindowA("#32770", "Title of the box");
    if (box == nullptr) return false;
    EXPECT_FALSE(IsWindowEnabled(form.Handle()) || IsWindowEnabled(other.Handle()));
    EXPECT_EQ(GetWindow(box, GW_OWNER), form.Handle());
    SendMessageA(GetDlgItem(box, IDYES), BM_CLICK, 0, 0);
    return true;
  });
  WindowsPlatform windows;
  EXPECT_EQ(windows.ShowMessage(
                {"Text", "Title of the box", MessageIcon::Question, MessageButtons::YesNo}),
            MessageAnswer::Yes);
  EXPECT_TRUE(IsWindowEnabled(form.Handle()) && IsWindowEnabled(other.Handle()));
  EXPECT_TRUE(PumpUntil([&] { return form.editor.HasFocus(); }));
  EXPECT_TRUE(log.empty());
}

TEST_F(ControlTest, AControlThatDisappearsInAHandlerLeavesTheKeyboardAlive) {
  for (const bool hides : {true, false}) {
    form.editor.SetFocus();
    form.onClick = [&] { hides ? form.editor.SetVisible(false) : form.editor.SetEnabled(false); };
    form.button.Click.Raise();  // a click of the mouse would take the focus itself
    EXPECT_TRUE(!form.editor.HasFocus() && IsChild(form.Handle(), GetFocus()));
    form.editor.SetVisible(true);
    form.editor.SetEnabled(true);
  }
}

TEST_F(ControlTest, ADroppedCalendarTakesNoFocus) {
  form.date.SetFocus();
  RECT client = {};
  GetClientRect(form.date.Handle(), &client);
  const LPARAM arrow = MAKELPARAM(client.right - 8, client.bottom / 2);
  SendMessageA(form.date.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, arrow);
  SendMessageA(form.date.Handle(), WM_LBUTTONUP, 0, arrow);
  const auto calendar = [&] {
    return reinterpret_cast<HWND>(SendMessageA(form.date.Handle(), DTM_GETMONTHCAL, 0, 0));
  };
  ASSERT_TRUE(PumpUntil([&] { return calendar() != nullptr && IsWindowVisible(calendar()); }));
  ::SetFocus(calendar());
  Pump();
  EXPECT_THAT(log, ElementsAre("editor lost"));
  // Another control takes it, although the calendar was in between.
  form.button.SetFocus();
  EXPECT_THAT(log, ElementsAre("editor lost", "date lost"));
}

}  // namespace
}  // namespace tallyrun::testing
