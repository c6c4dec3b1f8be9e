// Who has the focus, and who is told: only another control of the program takes it.
#include <gmock/gmock.h>

#include "tests/support/FormDriver.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/ui/TryForm.h"
#include "ui/WindowsPlatform.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FocusTest : public ::testing::Test {
 protected:
  FocusTest() {
    form.Show();
    form.editor.SetFocus();
    Pump();
    TryForm::Log(form.editor.GotFocus, log, "editor got");
    TryForm::Log(form.editor.LostFocus, log, "editor lost");
    TryForm::Log(form.button.GotFocus, log, "button got");
    TryForm::Log(form.button.LostFocus, log, "button lost");
  }

  RecordingPlatform platform;
  std::vector<std::string> log;
  TryForm form;
};

TEST_F(FocusTest, AnotherControlTakesIt) {
  form.button.SetFocus();
  EXPECT_THAT(log, ElementsAre("editor lost", "button got"));
  EXPECT_TRUE(form.button.HasFocus());
  form.button.SetFocus();
  EXPECT_EQ(log.size(), 2u);
  ClickOn(form.editor);
  EXPECT_THAT(log, ElementsAre("editor lost", "button got", "button lost", "editor got"));
}

TEST_F(FocusTest, AMessageBoxTakesNothingAndDisablesEveryForm) {
  static TryForm* shown;
  static bool formsDisabled;
  TryForm other("frmTryOther");
  other.Load();
  shown = &form;
  formsDisabled = false;
  const auto answer = [](HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND box = FindWindowA("#32770", "Title of the box");
    if (box == nullptr) return;
    KillTimer(nullptr, timer);
    formsDisabled = true;
    for (const Form* loaded : Form::LoadedForms()) {
      if (IsWindowEnabled(loaded->Handle())) formsDisabled = false;
    }
    EXPECT_EQ(GetWindow(box, GW_OWNER), shown->Handle());
    SendMessageA(GetDlgItem(box, IDYES), BM_CLICK, 0, 0);
  };
  SetTimer(nullptr, 0, USER_TIMER_MINIMUM, answer);
  WindowsPlatform windows;
  EXPECT_EQ(windows.ShowMessage(
                {"Text", "Title of the box", MessageIcon::Question, MessageButtons::YesNo}),
            MessageAnswer::Yes);
  Pump();
  EXPECT_TRUE(formsDisabled);
  EXPECT_TRUE(IsWindowEnabled(form.Handle()));
  EXPECT_TRUE(IsWindowEnabled(other.Handle()));
  EXPECT_TRUE(form.editor.HasFocus());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(FocusTest, AnotherFormTakesItAndGivesItBack) {
  TryForm other("frmTryOther");
  TryForm::Log(other.editor.GotFocus, log, "other got");
  other.Show();
  ASSERT_TRUE(PumpUntil([&] { return other.editor.HasFocus(); }));
  EXPECT_THAT(log, ElementsAre("editor lost", "other got"));
  log.clear();
  SetForegroundWindow(form.Handle());
  EXPECT_TRUE(PumpUntil([&] { return form.editor.HasFocus(); }));
  EXPECT_THAT(log, ElementsAre("editor got"));
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
  TryForm::Log(form.date.LostFocus, log, "date lost");
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
  EXPECT_THAT(log, ElementsAre("date lost", "button got"));
}

}  // namespace
}  // namespace tallyrun::testing
