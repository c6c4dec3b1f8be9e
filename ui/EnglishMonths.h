// The month field of a date picker: its English text, its width, and what keys do in it.
#pragma once

#include <windows.h>

#include <string_view>

#include "core/Conversion.h"

namespace tallyrun {

// "Jan" for 1.
std::string_view EnglishMonth(int month);

// The room that the widest month takes in `font`, in pixels.
SIZE WidestMonth(HFONT font);

// `date` after the virtual key `key` in the month field: up and down step round the year, Home
// and End go to its ends, a letter goes to the next month that begins with it. The day stays
// within the month.
Date MonthAfterKey(const Date& date, int key);

}  // namespace tallyrun
