// The program's surroundings in a test: the recorded platform, a Backup Location of its own, a
// window at work and a grid. Puts the process-wide state back afterwards.
#pragma once

#include <gtest/gtest.h>

#include "core/entry/EntryRow.h"
#include "core/entry/Settings.h"
#include "core/grid/FlexGrid.h"
#include "core/masterlists/Lists.h"
#include "lists/ListKind.h"
#include "tests/support/FakeBusyWindow.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {

class ProgramFixture : public ::testing::Test {
 protected:
  ProgramFixture() { Settings = {"123456", "1201950000009999", "1201950000000000", folder.Path()}; }
  ~ProgramFixture() override {
    Settings = {};
    EntryMode = {};
    BoList = {};
    IsinList = {};
    CurrentListKind.clear();
  }

  void ExpectWindow(const std::string& caption, PointerShape pointer = PointerShape::Normal) {
    EXPECT_EQ(busyWindow.caption, caption);
    EXPECT_EQ(busyWindow.pointer, pointer);
  }

  TempFolder folder;
  RecordingPlatform platform;
  FakeBusyWindow busyWindow;
  FlexGrid grid;
};

}  // namespace tallyrun::testing
