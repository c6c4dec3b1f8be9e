#include "ui/DatePicker.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "ui/Handles.h"

namespace tallyrun {
namespace {

constexpr int kMonths = 12;

// "Jan" for 1.
std::string EnglishMonth(int month) { return FormatDdMmmYyyy({2000, month, 1}).substr(3, 3); }

// The room that the widest month takes in `font`, in pixels.
SIZE WidestMonth(HFONT font) {
  const WindowDc screen(nullptr);
  const SelectScope selected(screen.Get(), font);
  SIZE widest = {};
  for (int month = 1; month <= kMonths; ++month) {
    const std::string name = EnglishMonth(month);
    SIZE size = {};
    GetTextExtentPoint32A(screen.Get(), name.data(), static_cast<int>(name.size()), &size);
    widest = {std::max(widest.cx, size.cx), std::max(widest.cy, size.cy)};
  }
  return widest;
}

// The date in another month; the day stays within it.
Date InMonth(const Date& date, int month) {
  using namespace std::chrono;
  const unsigned last{(year{date.year} / month / std::chrono::last).day()};
  return {date.year, month, std::min(date.day, static_cast<int>(last))};
}

// `date` after the virtual key `key` in the month field: up and down step round the year, Home
// and End go to its ends.
Date MonthAfterKey(const Date& date, int key) {
  switch (key) {
    case VK_UP:
    case VK_ADD:
      return InMonth(date, date.month % kMonths + 1);
    case VK_DOWN:
    case VK_SUBTRACT:
      return InMonth(date, (date.month + kMonths - 2) % kMonths + 1);
    case VK_HOME:
      return InMonth(date, 1);
    case VK_END:
      return InMonth(date, kMonths);
    default:
      return date;
  }
}

// `date` in the next month that begins with `letter`, in either case; the same when none does.
Date MonthBeginningWith(char letter, const Date& date) {
  const std::string wanted = ToLower({&letter, 1});
  for (int step = 0; step < kMonths; ++step) {
    const int month = (date.month + step) % kMonths + 1;
    if (ToLower(EnglishMonth(month)).starts_with(wanted)) return InMonth(date, month);
  }
  return date;
}

// The day, the month through a callback field, the year; the same with the month as a fixed text.
constexpr char kFormat[] = "dd'-'XXX'-'yyyy";
std::string FormatWithMonth(int month) { return "dd'-" + EnglishMonth(month) + "-'yyyy"; }

SYSTEMTIME SystemTimeOf(const Date& date) {
  SYSTEMTIME time = {};
  time.wYear = static_cast<WORD>(date.year);
  time.wMonth = static_cast<WORD>(date.month);
  time.wDay = static_cast<WORD>(date.day);
  return time;
}

Date DateOf(const SYSTEMTIME& time) { return {time.wYear, time.wMonth, time.wDay}; }

}  // namespace

void DatePicker::Create(ControlParent& parent, int id) {
  CreateControl(parent, id, DATETIMEPICK_CLASSA, "", WS_TABSTOP | WS_GROUP | DTS_SHORTDATEFORMAT);
  month_ = MonthField::Unknown;
  SendMessageA(Handle(), DTM_SETFORMATA, 0, reinterpret_cast<LPARAM>(kFormat));
  told_ = Value();
}

std::optional<Date> DatePicker::Value() const {
  SYSTEMTIME time = {};
  if (Handle() == nullptr ||
      SendMessageA(Handle(), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) != GDT_VALID) {
    return std::nullopt;
  }
  return DateOf(time);
}

void DatePicker::SetValue(const Date& date) {
  if (Handle() == nullptr) return;
  SYSTEMTIME time = SystemTimeOf(date);
  // Told beforehand, so that a notification for it is no news.
  const auto former = std::exchange(told_, date);
  if (SendMessageA(Handle(), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time)) == 0) {
    told_ = former;
  }
  RenewMonthText();
}

LRESULT DatePicker::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT answer = Control::OnMessage(message, wParam, lParam);
  const auto character = static_cast<char>(wParam);
  if (message == WM_CHAR && IsCharAlphaA(character)) GoToMonth(character);
  // By its first picture the picker has asked for the month, or it never will: Wine's does not
  // know callback fields. The month is then a fixed text that is renewed with every date.
  if (message == WM_PAINT && month_ == MonthField::Unknown) {
    month_ = MonthField::FixedText;
    RenewMonthText();
  }
  return answer;
}

void DatePicker::GoToMonth(char letter) {
  const auto value = Value();
  if (!value) return;
  SYSTEMTIME time = SystemTimeOf(MonthBeginningWith(letter, *value));
  SendMessageA(Handle(), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
  NoteChange();
}

LRESULT DatePicker::OnNotify(NMHDR& notification) {
  switch (notification.code) {
    case DTN_DATETIMECHANGE:
      NoteChange();
      break;
    case DTN_FORMATA: {
      month_ = MonthField::Asked;
      auto& format = reinterpret_cast<NMDATETIMEFORMATA&>(notification);
      const std::string month = EnglishMonth(format.st.wMonth);
      month.copy(format.szDisplay, month.size());
      format.szDisplay[month.size()] = '\0';
      format.pszDisplay = format.szDisplay;
      break;
    }
    case DTN_FORMATQUERYA: {
      month_ = MonthField::Asked;
      auto& query = reinterpret_cast<NMDATETIMEFORMATQUERYA&>(notification);
      query.szMax = WidestMonth(reinterpret_cast<HFONT>(SendMessageA(Handle(), WM_GETFONT, 0, 0)));
      break;
    }
    case DTN_WMKEYDOWNA: {
      auto& key = reinterpret_cast<NMDATETIMEWMKEYDOWNA&>(notification);
      key.st = SystemTimeOf(MonthAfterKey(DateOf(key.st), key.nVirtKey));
      break;
    }
    default:
      break;
  }
  return 0;
}

// The system tells of one choice several times; a handler hears of each date once.
void DatePicker::NoteChange() {
  const auto value = Value();
  if (value == told_) return;
  told_ = value;
  RenewMonthText();
  Change.Raise();
}

void DatePicker::RenewMonthText() {
  const auto value = Value();
  if (month_ != MonthField::FixedText || !value) return;
  SendMessageA(Handle(), DTM_SETFORMATA, 0,
               reinterpret_cast<LPARAM>(FormatWithMonth(value->month).c_str()));
}

}  // namespace tallyrun
