// The two instruction reports for the exchange: fixed-width plain text made from the rows of the
// entry sheet as they stand, written beside the program and opened in the system's text editor.
#pragma once

#include <string>
#include <string_view>

#include "core/grid/FlexGrid.h"
#include "core/text/Conversion.h"

namespace tallyrun {

// `text` cut or filled up with blanks to `width` characters; the blanks come after it, or before
// it when it is aligned right.
std::string PadText(std::string_view text, int width, bool alignRight = false);

// The whole report, lines joined by CR LF. The header takes the Delivery Date and the Broker ID
// from the first data row; without one, SubscriptOutOfRange is raised.
std::string PayInReportText(const FlexGrid& entries, const Date& printDate);
std::string PayOutReportText(const FlexGrid& entries, const Date& printDate);

// Each replaces its report in the program folder and opens it in the text editor, not waiting
// for it. Runs under a trap of its own: when anything fails the old report stays as it was.
void BuildPayInReport(const FlexGrid& entries);
void BuildPayOutReport(const FlexGrid& entries);

}  // namespace tallyrun
