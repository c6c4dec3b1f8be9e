// What each control tells its form, and when.
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
  EXPECT_EQ(tip(), "no tip");
  SendMessageA(form.button.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(form.button.Handle()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(tip(), "Tip of the button");
  form.button.SetToolTip("Another tip");
  EXPECT_EQ(tip(), "Another tip");
  form.Unload();
  form.Show();
  SendMessageA(form.button.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(form.button.Handle()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(tip(), "Tip of the button");
}

TEST_F(ControlsTest, AnOptionTellsOfTurningOnAndOfNothingElse) {
  Log(form.optFirst.Click, "first");
  Log(form.optSecond.Click, "second");
  form.optFirst.SetValue(true);
  form.optFirst.SetValue(true);
  form.optSecond.SetValue(false);
  EXPECT_THAT(log, ElementsAre("first"));
  ClickOn(form.optFirst);
  EXPECT_THAT(log, ElementsAre("first"));
  ClickOn(form.optSecond);
  EXPECT_THAT(log, ElementsAre("first", "second"));
  EXPECT_FALSE(form.optFirst.Value());
  form.optFirst.SetValue(true);
  EXPECT_FALSE(form.optSecond.Value());
  EXPECT_THAT(log, ElementsAre("first", "second", "first"));
}

TEST_F(ControlsTest, AnOptionCanBeTurnedBackInItsHandler) {
  // As a refused change of mode does it.
  form.optFirst.SetValue(true);
  Log(form.optFirst.Click, "first");
  form.optSecond.Click.Set([&] {
    log.push_back("second");
    form.optFirst.SetValue(true);
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

}  // namespace
}  // namespace tallyrun::testing
