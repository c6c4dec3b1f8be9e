// What each control tells its form, and when.
#include <gmock/gmock.h>

#include "tests/support/FormDriver.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/ui/TryForm.h"
#include "ui/EnglishMonths.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ControlsTest : public ::testing::Test {
 protected:
  ControlsTest() { form.Show(); }

  RecordingPlatform platform;
  std::vector<std::string> log;
  TryForm form;
};

TEST_F(ControlsTest, AnOptionTellsOfTurningOnAndOfNothingElse) {
  TryForm::Log(form.optFirst.Click, log, "first");
  TryForm::Log(form.optSecond.Click, log, "second");
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
  TryForm::Log(form.optFirst.Click, log, "first");
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

TEST_F(ControlsTest, ACheckBoxTellsOfEveryChange) {
  TryForm::Log(form.check.Click, log, "check");
  ClickOn(form.check);
  EXPECT_TRUE(form.check.Value());
  form.check.SetValue(true);
  EXPECT_EQ(log.size(), 1u);
  form.check.SetValue(false);
  EXPECT_EQ(log.size(), 2u);
}

TEST_F(ControlsTest, ADropDownTellsOfAnotherSelection) {
  TryForm::Log(form.combo.Click, log, "combo");
  for (const char* item : {"Client Code", "BO ID", "BO Name"}) form.combo.AddItem(item);
  EXPECT_EQ(form.combo.ListIndex(), -1);
  EXPECT_EQ(form.combo.SelectedText(), "");
  form.combo.SetListIndex(0);
  form.combo.SetListIndex(0);
  EXPECT_EQ(log.size(), 1u);
  form.combo.SetFocus();
  PressKey(VK_DOWN);
  EXPECT_EQ(log.size(), 2u);
  EXPECT_EQ(form.combo.SelectedText(), "BO ID");
  form.combo.Clear();
  EXPECT_EQ(form.combo.ListCount(), 0);
  form.combo.AddItem("Client Code");
  form.combo.SetListIndex(0);
  EXPECT_EQ(log.size(), 3u);
}

TEST_F(ControlsTest, AListHoldsSelectsAndTellsOfDoubleClicks) {
  TryForm::Log(form.list.DblClick, log, "double");
  for (const char* item : {"one", "two", "three"}) form.list.AddItem(item);
  form.list.SetListIndex(1);
  form.list.RemoveItem(0);
  EXPECT_EQ(form.list.ItemText(form.list.ListIndex()), "two");
  EXPECT_EQ(form.list.ItemText(5), "");
  SendMessageA(form.list.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  SendMessageA(form.list.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_THAT(log, IsEmpty());
  SendMessageA(form.list.Handle(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
  SendMessageA(form.list.Handle(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_THAT(log, ElementsAre("double"));
}

TEST_F(ControlsTest, ADropDownIsAsHighAsATextBox) {
  RECT combo = {};
  GetWindowRect(form.combo.Handle(), &combo);
  EXPECT_NEAR(combo.bottom - combo.top, form.editor.Bounds().height, form.Scale(2));
}

TEST_F(ControlsTest, ADatePickerTellsOfTheClerksChoicesOnly) {
  TryForm::Log(form.date.Change, log, "change");
  form.date.SetValue({2010, 1, 5});
  EXPECT_EQ(form.date.Value(), (Date{2010, 1, 5}));
  EXPECT_THAT(log, IsEmpty());
  form.date.SetFocus();
  TypeText("d");
  EXPECT_EQ(form.date.Value(), (Date{2010, 12, 5}));
  TypeText("x");
  EXPECT_THAT(log, ElementsAre("change"));
}

TEST_F(ControlsTest, ADatePickerTellsOfADateOnceHoweverOftenTheSystemDoes) {
  TryForm::Log(form.date.Change, log, "change");
  form.date.SetValue({2010, 1, 5});
  const auto notify = [&] {
    NMDATETIMECHANGE change = {};
    change.nmhdr = {form.date.Handle(), 8, static_cast<UINT>(DTN_DATETIMECHANGE)};
    SendMessageA(form.Handle(), WM_NOTIFY, 8, reinterpret_cast<LPARAM>(&change));
  };
  notify();
  EXPECT_THAT(log, IsEmpty());
  SYSTEMTIME chosen = {};
  chosen.wYear = 2010;
  chosen.wMonth = 12;
  chosen.wDay = 31;
  SendMessageA(form.date.Handle(), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&chosen));
  notify();
  notify();
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

TEST(EnglishMonthsTest, KeysInTheMonthFieldKeepTheDayWithinTheMonth) {
  const struct {
    Date from;
    int key;
    Date to;
  } cases[] = {
      {{2010, 12, 31}, VK_UP, {2010, 1, 31}},  {{2010, 1, 31}, VK_UP, {2010, 2, 28}},
      {{2012, 1, 31}, VK_UP, {2012, 2, 29}},   {{2010, 1, 15}, VK_DOWN, {2010, 12, 15}},
      {{2010, 5, 31}, VK_DOWN, {2010, 4, 30}}, {{2010, 5, 31}, VK_HOME, {2010, 1, 31}},
      {{2010, 5, 31}, VK_END, {2010, 12, 31}}, {{2010, 7, 5}, VK_RETURN, {2010, 7, 5}},
  };
  for (const auto& c : cases) EXPECT_EQ(MonthAfterKey(c.from, c.key), c.to) << c.key;
}

TEST(EnglishMonthsTest, ALetterGoesRoundTheMonthsThatBeginWithIt) {
  Date date = {2010, 1, 31};
  for (const Date& next : {Date{2010, 6, 30}, Date{2010, 7, 30}, Date{2010, 1, 30}}) {
    date = MonthBeginningWith('j', date);
    EXPECT_EQ(date, next);
  }
  EXPECT_EQ(MonthBeginningWith('F', {2010, 2, 1}), (Date{2010, 2, 1}));
  EXPECT_EQ(MonthBeginningWith('X', {2010, 2, 1}), (Date{2010, 2, 1}));
}

TEST_F(ControlsTest, ATextBoxTakesLongTextsAndSelectsAll) {
  const std::string text(100'000, 'x');
  form.editor.SetText(text);
  EXPECT_EQ(form.editor.Text(), text);
  form.editor.SelectAll();
  form.editor.SetFocus();
  TypeText("7");
  EXPECT_EQ(form.editor.Text(), "7");
}

TEST_F(ControlsTest, ATipCanBeSetChangedAndTakenAway) {
  const auto tipCount = [&] {
    int tools = 0;
    for (HWND tip = nullptr;
         (tip = FindWindowExA(nullptr, tip, TOOLTIPS_CLASSA, nullptr)) != nullptr;) {
      if (GetWindow(tip, GW_OWNER) == form.Handle()) {
        tools += static_cast<int>(SendMessageA(tip, TTM_GETTOOLCOUNT, 0, 0));
      }
    }
    return tools;
  };
  EXPECT_EQ(form.button.ToolTip(), "Tip of the button");
  EXPECT_EQ(tipCount(), 1);
  form.check.SetToolTip("Another");
  form.check.SetToolTip("Changed");
  EXPECT_EQ(tipCount(), 2);
  form.button.SetToolTip("");
  EXPECT_EQ(tipCount(), 1);
}

}  // namespace
}  // namespace tallyrun::testing
