// A form's life: dispatch inside the trap, closing while a handler runs, modal forms.
#include "core/RuntimeError.h"
#include "tests/ui/TryForm.h"
#include "ui/MessageLoop.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct FormTest : TryFormTest {
  FormTest() {
    platform.onPendingEvents = [] { PumpMessages(); };
  }
};

TEST_F(FormTest, AnErrorEndsItsHandlerAloneAndIsShown) {
  bool handlerWentOn = false;
  form.onClick = [&] {
    // A handler inside a handler has a trap of its own.
    form.optFirst.TurnOn();
    handlerWentOn = true;
    throw std::bad_alloc();
  };
  form.onLoad = [] { throw RuntimeError(ErrorKind::TypeMismatch); };
  form.Show();
  EXPECT_EQ(platform.TakeMessage(), (Message{"Type mismatch"}));
  EXPECT_TRUE(IsWindowVisible(form.Handle()));
  ClickOn(form.button);
  EXPECT_EQ(platform.TakeMessage(), (Message{"Out of memory"}));
  EXPECT_TRUE(handlerWentOn);
}

TEST_F(FormTest, ClosedInItsOwnHandlerItIsHiddenAndGoesAfterTheHandler) {
  TryForm main("frmTryMain", true);
  main.Show();
  form.onClick = [&] {
    PostMessageA(form.Handle(), WM_CLOSE, 0, 0);
    ThePlatform().ProcessPendingEvents();
    EXPECT_FALSE(IsWindowVisible(form.Handle()));
    form.editor.SetText("outcome");
    EXPECT_EQ(form.editor.Text(), "outcome");
    Tell("done", "title", MessageIcon::Information);
  };
  form.Show();
  ClickOn(form.button);
  EXPECT_EQ(platform.TakeMessage().text, "done");
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_TRUE(main.IsLoaded());
}

TEST_F(FormTest, TheMainFormClosedWhileAHandlerWaitsEndsTheProgram) {
  TryForm main("frmTryMain", true);
  TryForm other;
  main.onUnload = [&] { other.Unload(); };
  // Whichever form waits, nothing of its handler runs after the wait.
  for (TryForm* const waiting : {&main, &other}) {
    bool handlerWentOn = false;
    waiting->onClick = [&] {
      PostMessageA(main.Handle(), WM_CLOSE, 0, 0);
      ThePlatform().ProcessPendingEvents();
      handlerWentOn = true;
    };
    main.Show();
    other.Show();
    ClickOn(waiting->button);
    EXPECT_FALSE(handlerWentOn);
    EXPECT_FALSE(main.IsLoaded());
    EXPECT_TRUE(Form::ProgramIsEnding());
    Pump();
    EXPECT_FALSE(other.IsLoaded() && IsWindowVisible(other.Handle()));
    EXPECT_THAT(platform.messages, IsEmpty());
    other.Unload();
  }
}

TEST_F(FormTest, AModalFormDisablesTheOthersUntilItIsClosed) {
  TryForm owner("frmTryOwner");
  TryForm bystander("frmTryBystander");
  owner.onClick = [&] {
    log.push_back("before");
    form.ShowModal(&owner);
    log.push_back("after");
  };
  bystander.Show();
  owner.Show();
  ASSERT_TRUE(PumpUntil([&] { return GetActiveWindow() == owner.Handle(); }));
  {
    const Meanwhile closeIt([&] {
      if (!form.IsLoaded() || !IsWindowVisible(form.Handle())) return false;
      log.push_back("shown");
      EXPECT_FALSE(IsWindowEnabled(owner.Handle()) || IsWindowEnabled(bystander.Handle()));
      // Whatever asks a form beneath to close is put off.
      SendMessageA(owner.Handle(), WM_CLOSE, 0, 0);
      form.Unload();
      return true;
    });
    ClickOn(owner.button);
  }
  EXPECT_THAT(log, ElementsAre("before", "shown", "after"));
  EXPECT_TRUE(owner.IsLoaded());
  EXPECT_TRUE(IsWindowEnabled(owner.Handle()) && IsWindowEnabled(bystander.Handle()));
  EXPECT_TRUE(PumpUntil([&] { return GetActiveWindow() == owner.Handle(); }));
}

TEST_F(FormTest, AnotherDpiScalesFontAndLayout) {
  form.Show();
  const TextMeasurer before = form.Measurer();
  const int heightBefore = form.button.Bounds().height;
  const int dpi = form.Dpi() * 2;
  const RECT suggested = {20, 30, 1020, 930};
  SendMessageA(form.Handle(), WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
               reinterpret_cast<LPARAM>(&suggested));
  EXPECT_EQ(form.Dpi(), dpi);
  EXPECT_EQ(form.Scale(10), 10 * dpi / 96);
  EXPECT_GT(form.button.Bounds().height, heightBefore * 3 / 2);
  RECT window = {};
  GetWindowRect(form.Handle(), &window);
  EXPECT_EQ(window.left, suggested.left);
  EXPECT_EQ(window.right, suggested.right);
  // A control draws with the form's new font, and a text stays as wide on paper, but for hinting.
  EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageA(form.button.Handle(), WM_GETFONT, 0, 0)),
            form.Font());
  const int former = before.WidthOf("Quantity 1234567890");
  EXPECT_NEAR(form.Measurer().WidthOf("Quantity 1234567890"), former, former / 5);
}

TEST_F(FormTest, TheHourglassHoldsOverEveryControl) {
  form.Show();
  const HCURSOR hourglass = LoadCursorA(nullptr, IDC_WAIT);
  const auto pointerOver = [](const Control& control) {
    SetCursor(LoadCursorA(nullptr, IDC_CROSS));
    SendMessageA(control.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(control.Handle()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return GetCursor();
  };
  {
    BusyScope busy(form);
    busy.Show("");
    for (const Control* control : form.Controls()) EXPECT_EQ(pointerOver(*control), hourglass);
  }
  for (const Control* control : form.Controls()) EXPECT_NE(pointerOver(*control), hourglass);
}

}  // namespace
}  // namespace tallyrun::testing
