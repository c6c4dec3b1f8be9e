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

// Of the letters that month names begin with.
char ToUpper(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

int NextMonth(int month) { return month % kMonths + 1; }
int FormerMonth(int month) { return (month + kMonths - 2) % kMonths + 1; }

int LastDayOf(int year, int month) {
  using namespace std::chrono;
  const year_month_day_last last{std::chrono::year{year},
                                 month_day_last{std::chrono::month{static_cast<unsigned>(month)}}};
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

Date InMonth(const Date& date, int month) {
  return {date.year, month, std::min(date.day, LastDayOf(date.year, month))};
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
  switch (key) {
    case VK_UP:
    case VK_ADD:
      return InMonth(date, NextMonth(date.month));
    case VK_DOWN:
    case VK_SUBTRACT:
      return InMonth(date, FormerMonth(date.month));
    case VK_HOME:
      return InMonth(date, 1);
    case VK_END:
      return InMonth(date, kMonths);
    default:
      return date;
  }
}

Date MonthBeginningWith(char letter, const Date& date) {
  const char capital = ToUpper(letter);
  for (int month = NextMonth(date.month); month != date.month; month = NextMonth(month)) {
    if (EnglishMonth(month).front() == capital) return InMonth(date, month);
  }
  return date;
}

}  // namespace tallyrun
