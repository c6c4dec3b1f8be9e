// A Pay In sheet with small master lists, for tests of what the sheet can do.
#pragma once

#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {

struct EntrySheetFixture : ProgramFixture {
  // One character is 100 twips wide.
  EntrySheetFixture();
};

// Replaces the lists; each text is a record as it stands in the file, without the caption line.
void SetBoList(const std::vector<std::string>& records);
void SetIsinList(const std::vector<std::string>& records);

}  // namespace tallyrun::testing
