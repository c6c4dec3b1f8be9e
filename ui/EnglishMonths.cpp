#include "ui/EnglishMonths.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "ui/Handles.h"

namespace tallyrun {
namespace {

constexpr int kMonths = 12;
constexpr std::array<std::string_view, kMonths> kNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

int NextMonth(int month) { return month % kMonths + 1; }
int FormerMonth(int month) { return (month + kMonths - 2) % kMonths + 1; }

int MonthBeginningWith(char letter, int after) {
  int month = after;
  for (int step = 0; step < kMonths; ++step) {
    month = NextMonth(month);
    if (EnglishMonth(month).front() == letter) return month;
  }
  return after;
}

int LastDayOf(int year, int month) {
  using namespace std::chrono;
  const year_month_day_last last{std::chrono::year{year},
                                 month_day_last{std::chrono::month{static_cast<unsigned>(month)}}};
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

}  // namespace

std::string_view EnglishMonth(int month) {
  return month < 1 || month > kMonths ? std::string_view()
                                      : kNames[static_cast<std::size_t>(month) - 1];
}

SIZE WidestMonth(HFONT font) {
  const WindowDc screen(nullptr);
  const SelectScope selected(screen.Get(), font);
  SIZE widest = {};
  for (const std::string_view name : kNames) {
    SIZE size = {};
    GetTextExtentPoint32A(screen.Get(), name.data(), static_cast<int>(name.size()), &size);
    widest = {std::max(widest.cx, size.cx), std::max(widest.cy, size.cy)};
  }
  return widest;
}

Date MonthAfterKey(const Date& date, int key) {
  Date moved = date;
  switch (key) {
    case VK_UP:
    case VK_ADD:
      moved.month = NextMonth(date.month);
      break;
    case VK_DOWN:
    case VK_SUBTRACT:
      moved.month = FormerMonth(date.month);
      break;
    case VK_HOME:
      moved.month = 1;
      break;
    case VK_END:
      moved.month = kMonths;
      break;
    default:
      // Letter keys have their capital's code.
      if (key >= 'A' && key <= 'Z') {
        moved.month = MonthBeginningWith(static_cast<char>(key), date.month);
      }
      break;
  }
  moved.day = std::min(moved.day, LastDayOf(moved.year, moved.month));
  return moved;
}

}  // namespace tallyrun
