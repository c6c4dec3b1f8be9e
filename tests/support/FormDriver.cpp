#include "tests/support/FormDriver.h"

#include <chrono>
#include <gtest/gtest.h>

#include "core/Platform.h"
#include "ui/MessageLoop.h"

namespace tallyrun::testing {
namespace {

constexpr std::chrono::seconds kPatience(10);
constexpr DWORD kPollMilliseconds = 10;

LPARAM KeyParameter(int virtualKey, bool released) {
  const auto scanCode = MapVirtualKeyA(static_cast<UINT>(virtualKey), MAPVK_VK_TO_VSC);
  constexpr LPARAM kReleased = 0xC0000000;
  return static_cast<LPARAM>(1 | scanCode << 16) | (released ? kReleased : 0);
}

Meanwhile* current = nullptr;

}  // namespace

void Pump() {
  try {
    PumpMessages();
  } catch (const ProgramEnding&) {
    RunMessageLoop();
  }
}

bool PumpUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  for (;;) {
    Pump();
    if (condition()) return true;
    if (std::chrono::steady_clock::now() > end) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollMilliseconds, QS_ALLINPUT);
  }
}

Meanwhile::Meanwhile(std::function<bool()> step)
    : step_(std::move(step)), timer_(SetTimer(nullptr, 0, kPollMilliseconds, Try)) {
  current = this;
}

Meanwhile::~Meanwhile() {
  KillTimer(nullptr, timer_);
  current = nullptr;
}

void CALLBACK Meanwhile::Try(HWND, UINT, UINT_PTR timer, DWORD) {
  if (current != nullptr && current->step_()) KillTimer(nullptr, timer);
}

void ClickOn(const Control& control) {
  const PixelRect bounds = control.Bounds();
  const LPARAM middle = MAKELPARAM(bounds.width / 2, bounds.height / 2);
  PostMessageA(control.Handle(), WM_LBUTTONDOWN, MK_LBUTTON, middle);
  PostMessageA(control.Handle(), WM_LBUTTONUP, 0, middle);
  Pump();
}

void MouseOnCell(const FlexGridControl& grid, UINT message, int row, int col) {
  const GridRect cell = grid.CellBounds(row, col);
  PostMessageA(grid.Handle(), message, 0,
               MAKELPARAM(cell.left + cell.width / 2, cell.top + cell.height / 2));
  Pump();
}

void PressKey(int virtualKey) {
  const auto key = static_cast<WPARAM>(virtualKey);
  PostMessageA(GetFocus(), WM_KEYDOWN, key, KeyParameter(virtualKey, false));
  Pump();
  // Released where the focus is by then.
  PostMessageA(GetFocus(), WM_KEYUP, key, KeyParameter(virtualKey, true));
  Pump();
}

void PickDay(const DatePicker& picker, const Date& day) {
  NMDATETIMECHANGE change = {};
  const int id = picker.Id();
  change.nmhdr = {picker.Handle(), static_cast<UINT_PTR>(id),
                  static_cast<UINT>(DTN_DATETIMECHANGE)};
  change.st.wYear = static_cast<WORD>(day.year);
  change.st.wMonth = static_cast<WORD>(day.month);
  change.st.wDay = static_cast<WORD>(day.day);
  DateTime_SetSystemtime(picker.Handle(), GDT_VALID, &change.st);
  // The system tells of one choice more than once.
  for (int times = 0; times < 2; ++times) {
    SendMessageA(GetParent(picker.Handle()), WM_NOTIFY, static_cast<WPARAM>(id),
                 reinterpret_cast<LPARAM>(&change));
  }
}

void ExpectControlsApart(const Form& form) {
  for (const int dpi : {96, 144, 192}) {
    const RECT suggested = {0, 0, 1200, 800};
    SendMessageA(form.Handle(), WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
                 reinterpret_cast<LPARAM>(&suggested));
    RECT client = {};
    GetClientRect(form.Handle(), &client);
    std::vector<RECT> placed;
    for (const Control* control : form.Controls()) {
      if (!IsWindowVisible(control->Handle())) continue;
      const PixelRect bounds = control->Bounds();
      const RECT place = {bounds.x, bounds.y, bounds.x + bounds.width, bounds.y + bounds.height};
      RECT common = {};
      EXPECT_TRUE(IntersectRect(&common, &place, &client) && EqualRect(&common, &place))
          << control->Id() << " at " << dpi;
      for (const RECT& other : placed) {
        EXPECT_FALSE(IntersectRect(&common, &place, &other)) << control->Id() << " at " << dpi;
      }
      placed.push_back(place);
    }
  }
}

}  // namespace tallyrun::testing
