// The month field of a date picker: its English text, its width, and what keys do in it.
#pragma once

#include <windows.h>

#include <string_view>

#include "core/text/Conversion.h"

namespace tallyrun {

// "Jan" for 1.
std::string_view EnglishMonth(int month);

// The room that the widest month takes in `font`, in pixels.
SIZE WidestMonth(HFONT font);

// `date` after the virtual key `key` in the month field: up and down step round the year, Home
// and End go to its ends. The day stays within the month.
Date MonthAfterKey(const Date& date, int key);

// `date` in the next month that begins with `letter`, in either case; the same when none does.
Date MonthBeginningWith(char letter, const Date& date);

}  // namespace tallyrun
