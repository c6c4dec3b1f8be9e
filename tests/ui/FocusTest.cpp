// Who has the focus, and who is told: only another control of the program takes it.
#include "tests/ui/TryForm.h"
#include "ui/WindowsPlatform.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct FocusTest : TryFormTest {
  FocusTest() {
    form.Show();
    form.editor.SetFocus();
    Pump();
    Log(form.editor.LostFocus, "editor lost");
    Log(form.button.LostFocus, "button lost");
  }
};

TEST_F(FocusTest, AnotherControlTakesIt) {
  form.button.SetFocus();
  EXPECT_TRUE(form.button.HasFocus());
  form.button.SetFocus();
  EXPECT_THAT(log, ElementsAre("editor lost"));
  ClickOn(form.editor);
  EXPECT_THAT(log, ElementsAre("editor lost", "button lost"));
}

TEST_F(FocusTest, AMessageBoxTakesNothingAndDisablesEveryForm) {
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
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(FocusTest, AnotherFormTakesItAndGivesItBack) {
  TryForm other("frmTryOther");
  Log(other.editor.LostFocus, "other lost");
  other.Show();
  ASSERT_TRUE(PumpUntil([&] { return other.editor.HasFocus(); }));
  // A window manager may bring the first one back for a moment.
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log.back(), "editor lost");
  log.clear();
  SetForegroundWindow(form.Handle());
  EXPECT_TRUE(PumpUntil([&] { return form.editor.HasFocus(); }));
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log.back(), "other lost");
}

TEST_F(FocusTest, AControlThatDisappearsInAHandlerLeavesTheKeyboardAlive) {
  for (const bool hides : {true, false}) {
    form.editor.SetFocus();
    log.clear();
    form.onClick = [&] { hides ? form.editor.SetVisible(false) : form.editor.SetEnabled(false); };
    SendMessageA(form.button.Handle(), BM_CLICK, 0, 0);
    EXPECT_NE(GetFocus(), form.editor.Handle());
    EXPECT_TRUE(IsChild(form.Handle(), GetFocus()));
    form.editor.SetVisible(true);
    form.editor.SetEnabled(true);
  }
}

TEST_F(FocusTest, ADroppedCalendarTakesNothing) {
  form.date.SetFocus();
  Log(form.date.LostFocus, "date lost");
  log.clear();
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
  EXPECT_THAT(log, IsEmpty());
  // Another control does, although the calendar was in between.
  form.button.SetFocus();
  EXPECT_THAT(log, ElementsAre("date lost"));
}

}  // namespace
}  // namespace tallyrun::testing
