// A Pay In sheet with small master lists, for tests of what the sheet can do.
#pragma once

#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {

struct EntrySheetFixture : ProgramFixture {
  // One character is 100 twips wide.
  EntrySheetFixture() {
    EntryMode = kPayIn;
    ReadBoList(
        "S/N~BO ID~BO Name~Client Code\r\n1~1201950000000001~ANN ALDER~C1\r\n"
        "2~1201950000000002~BEN BIRCH~C2\r\n3~1201950000000003~CL\xC9O CEDAR~C3\r");
    ReadIsinList(
        "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n"
        "1~KX0001000011~ALPHA MILLS LTD~ALPHAM~101\r\n2~KX0002000029~BRAVO BANK LTD~BRAVOB~102\r\n"
        "3~KX0003000037~CHARLIE CABLE LTD~CHARLC~103\r");
    grid.SetCols(EntryColumn::kCount);
    FillRows(grid, {"1"});
    grid.SetMeasurer(TextMeasurer::FixedWidth(100));
  }
};

}  // namespace tallyrun::testing
