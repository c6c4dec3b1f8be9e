#include "ui/DatePicker.h"

#include <utility>

#include "ui/EnglishMonths.h"

namespace tallyrun {
namespace {

// The day, the month through a callback field, the year.
constexpr char kFormat[] = "dd'-'XXX'-'yyyy";

// The same with the month as a fixed text.
std::string FormatWithMonth(int month) {
  return "dd'-" + std::string(EnglishMonth(month)) + "-'yyyy";
}

SYSTEMTIME SystemTimeOf(const Date& date) {
  SYSTEMTIME time = {};
  time.wYear = static_cast<WORD>(date.year);
  time.wMonth = static_cast<WORD>(date.month);
  time.wDay = static_cast<WORD>(date.day);
  return time;
}

Date DateOf(const SYSTEMTIME& time) { return {time.wYear, time.wMonth, time.wDay}; }

}  // namespace

void DatePicker::Create(ControlParent& parent, int id, const std::string& toolTip) {
  CreateControl(parent, DATETIMEPICK_CLASSA, "",
                WS_VISIBLE | WS_TABSTOP | WS_GROUP | DTS_SHORTDATEFORMAT, 0, id);
  month_ = MonthField::Unknown;
  SendMessageA(Handle(), DTM_SETFORMATA, 0, reinterpret_cast<LPARAM>(kFormat));
  told_ = Value();
  SetToolTip(toolTip);
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
      const std::string_view month = EnglishMonth(format.st.wMonth);
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
