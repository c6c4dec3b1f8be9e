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

}  // namespace
}  // namespace tallyrun::testing
