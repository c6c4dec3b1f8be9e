// A date picker that shows "05-Jan-2010" with the English month, whatever the locale. A letter
// typed in it goes to the next month that begins with it.
#pragma once

#include <optional>
#include <string>

#include "core/text/Conversion.h"
#include "ui/Control.h"
#include "ui/Layout.h"

namespace tallyrun {

class DatePicker : public Control {
 public:
  // The clerk chose another date.
  Event<> Change;

  void Create(ControlParent& parent, int id);
  std::optional<Date> Value() const;
  // Raises no Change. A date that the picker cannot show leaves it as it is.
  void SetValue(const Date& date);
  int WidthIn(const LayoutArea& area) const override { return area.DateWidth(); }

 protected:
  LRESULT OnNotify(NMHDR& notification) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool EditsText() const override { return true; }

 private:
  // How the English month gets on screen: the picker asks for it, or it is part of the format.
  enum class MonthField { Unknown, Asked, FixedText };

  void GoToMonth(char letter);
  void NoteChange();
  void RenewMonthText();

  MonthField month_ = MonthField::Unknown;
  std::optional<Date> told_;  // the value that Change last told of, or that was set
};

}  // namespace tallyrun
