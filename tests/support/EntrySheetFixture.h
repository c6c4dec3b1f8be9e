// An entry sheet with small master lists, settings and the recorded platform, for tests of what
// the sheet can do. Puts the process-wide state back afterwards.
#pragma once

#include <gtest/gtest.h>

#include "core/EntryRow.h"
#include "core/FlexGrid.h"
#include "core/Lists.h"
#include "core/Settings.h"
#include "tests/support/RecordingPlatform.h"

namespace tallyrun::testing {

class EntrySheetFixture : public ::testing::Test {
 protected:
  EntrySheetFixture();
  ~EntrySheetFixture() override;

  // One character is 100 twips wide.
  FlexGrid grid;
  RecordingPlatform platform;
};

// Replaces the lists; each text is a record as it stands in the file, without the caption line.
void SetBoList(const std::vector<std::string>& records);
void SetIsinList(const std::vector<std::string>& records);

}  // namespace tallyrun::testing
