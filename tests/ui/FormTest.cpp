// A form's life: dispatch inside the trap, closing while a handler runs, modal forms, DPI.
#include "core/RuntimeError.h"
#include "tests/ui/TryForm.h"
#include "ui/MessageLoop.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

using FormTest = TryFormTest;

TEST_F(FormTest, AnErrorEndsItsHandlerAloneAndIsShown) {
  form.onLoad = [] { throw RuntimeError(ErrorKind::TypeMismatch); };
  form.onClick = [] { throw std::bad_alloc(); };
  form.Show();
  EXPECT_EQ(platform.TakeMessage(), (Message{"Type mismatch"}));
  EXPECT_TRUE(IsWindowVisible(form.Handle()));
  ClickOn(form.button);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Out of memory"}));
}

TEST_F(FormTest, TheMainFormClosedWhileAHandlerWaitsEndsTheProgram) {
  platform.onPendingEvents = [] { PumpMessages(); };
  TryForm main("frmTryMain", true);
  main.onUnload = [&] { form.Unload(); };
  // Whichever form waits, nothing of its handler runs after the wait.
  for (TryForm* const waiting : {&main, &form}) {
    waiting->onClick = [&] {
      PostMessageA(main.Handle(), WM_CLOSE, 0, 0);
      ThePlatform().ProcessPendingEvents();
      ADD_FAILURE() << "the handler went on";
    };
    main.Show();
    form.Show();
    ClickOn(waiting->button);
    EXPECT_FALSE(main.IsLoaded());
    EXPECT_TRUE(Form::ProgramIsEnding());
    Pump();
    EXPECT_FALSE(form.IsLoaded() && IsWindowVisible(form.Handle()));
    EXPECT_TRUE(platform.messages.empty());
    form.Unload();
  }
}

TEST_F(FormTest, AModalFormDisablesTheOthersUntilItIsClosedAndGivesTheFocusBack) {
  TryForm owner("frmTryOwner");
  TryForm bystander("frmTryBystander");
  owner.onClick = [&] {
    log.clear();
    form.ShowModal(&owner);
    log.push_back("after");
  };
  owner.button.LostFocus.Set([&] { log.push_back("button lost"); });
  bystander.Show();
  owner.Show();
  ASSERT_TRUE(PumpUntil([&] { return GetActiveWindow() == owner.Handle(); }));
  const Meanwhile closeIt([&] {
    if (!form.IsLoaded() || !form.editor.HasFocus()) return false;
    EXPECT_FALSE(IsWindowEnabled(owner.Handle()) || IsWindowEnabled(bystander.Handle()));
    // Whatever asks a form beneath to close is put off.
    SendMessageA(owner.Handle(), WM_CLOSE, 0, 0);
    form.Unload();
    return true;
  });
  ClickOn(owner.button);
  EXPECT_THAT(log, ElementsAre("button lost", "after"));
  EXPECT_TRUE(IsWindowEnabled(owner.Handle()) && IsWindowEnabled(bystander.Handle()));
  EXPECT_TRUE(PumpUntil([&] { return owner.button.HasFocus(); }));
}

TEST_F(FormTest, AnotherDpiScalesFontAndLayout) {
  form.Show();
  const TextMeasurer before = form.Measurer();
  const int heightBefore = form.button.Bounds().height;
  const int dpi = form.Dpi() * 2;
  const RECT suggested = {20, 30, 1020, 930};
  SendMessageA(form.Handle(), WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
               reinterpret_cast<LPARAM>(&suggested));
  EXPECT_GT(form.button.Bounds().height, heightBefore * 3 / 2);
  RECT window = {};
  GetWindowRect(form.Handle(), &window);
  EXPECT_TRUE(EqualRect(&window, &suggested));
  // A control draws with the form's new font, and a text stays as wide on paper, but for hinting.
  EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageA(form.button.Handle(), WM_GETFONT, 0, 0)),
            form.Font());
  const int former = before.WidthOf("Quantity 1234567890");
  EXPECT_NEAR(form.Measurer().WidthOf("Quantity 1234567890"), former, former / 5);
}

TEST_F(FormTest, TheHourglassHoldsOverEveryControl) {
  form.Show();
  for (const bool busy : {true, false}) {
    std::optional<BusyScope> scope;
    if (busy) scope.emplace(form).Show("");
    for (const Control* control : form.Controls()) {
      SetCursor(LoadCursorA(nullptr, IDC_CROSS));
      SendMessageA(control->Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(control->Handle()),
                   MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
      EXPECT_EQ(GetCursor() == LoadCursorA(nullptr, IDC_WAIT), busy) << control->Id();
    }
  }
}

}  // namespace
}  // namespace tallyrun::testing
