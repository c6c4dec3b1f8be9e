// The fields of the entry sheet that follow from others: everything but what the clerk types.
#pragma once

#include "core/grid/FlexGrid.h"
#include "core/text/Conversion.h"

namespace tallyrun {

// Fills every data row of the sorted sheet: serial number, delivery date, the broker's own
// identifiers, names and codes from the lists, Internal Ref. No. Raises TypeMismatch at a trade
// date that is none; the rows before it stay filled.
void FillAutoFields(FlexGrid& grid, const Date& deliveryDay);

// Recomputes the Internal Ref. No. of every data row alone.
void FillInternalRefNos(FlexGrid& grid);

}  // namespace tallyrun
