// Both reports against golden files, made from one sheet: an account under two client codes, rows
// of an account apart from each other, texts longer than their columns, and blanks.
#include <gtest/gtest.h>

#include "core/EntryRow.h"
#include "core/Settings.h"
#include "core/modFileIO.h"
#include "reports/InstructionReport.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {
namespace {

std::string Golden(const std::string& name) {
  return ReadBytes(std::string(TALLYRUN_TEST_DATA) + "/reports/" + name);
}

class InstructionReport : public ::testing::Test {
 protected:
  InstructionReport() {
    Settings.clearingBoid = "1201950000000001";
    platform_.programFolder = folder_.Path().substr(0, folder_.Path().size() - 1);
    sheet_.SetCols(EntryColumn::kCount);
    folder_.Write("sheet.txt", Golden("sheet.txt"));
    LoadFileIntoGrid(folder_ / "sheet.txt", sheet_);
  }
  ~InstructionReport() override { Settings = {}; }

  RecordingPlatform platform_;
  TempFolder folder_;
  FlexGrid sheet_;
};

TEST(PadText, CutsOrFillsToTheWidth) {
  EXPECT_EQ(PadText("", 3), "   ");
  EXPECT_EQ(PadText("ab", 4), "ab  ");
  EXPECT_EQ(PadText("ab", 4, true), "  ab");
  EXPECT_EQ(PadText("abcd", 4, true), "abcd");
  EXPECT_EQ(PadText("abcdef", 4, true), "abcd");
}

TEST_F(InstructionReport, PayInIsWrittenByteForByteAndOpened) {
  BuildPayInReport(sheet_);
  EXPECT_EQ(folder_.Read("PAY-IN INSTRUCTIONS"), Golden("pay-in.txt"));
  ASSERT_EQ(platform_.started.size(), 1u);
  EXPECT_EQ(platform_.started[0].commandLine,
            "notepad \"" + folder_ / "PAY-IN INSTRUCTIONS" + "\"");
  EXPECT_EQ(platform_.started[0].mode, WindowMode::NormalFocus);
}

TEST_F(InstructionReport, PayOutReplacesTheOldReportAndCarriesSignatures) {
  folder_.Write("PAY-OUT INSTRUCTIONS", "yesterday's");
  sheet_.SetRows(2);
  BuildPayOutReport(sheet_);
  EXPECT_EQ(folder_.Read("PAY-OUT INSTRUCTIONS"), Golden("pay-out.txt"));
  EXPECT_FALSE(folder_.Has("PAY-IN INSTRUCTIONS"));
}

TEST_F(InstructionReport, WhatFailsIsToldAndLeavesTheOldReportUnopened) {
  folder_.Write("PAY-IN INSTRUCTIONS", "yesterday's");
  sheet_.SetRows(1);
  BuildPayInReport(sheet_);
  EXPECT_EQ(platform_.TakeMessage(), Message{"Subscript out of range"});
  EXPECT_EQ(folder_.Read("PAY-IN INSTRUCTIONS"), "yesterday's");

  sheet_.SetRows(2);
  platform_.programFolder += "\\gone";
  BuildPayInReport(sheet_);
  EXPECT_EQ(platform_.TakeMessage(), Message{"Path not found"});
  EXPECT_TRUE(platform_.started.empty());
}

TEST_F(InstructionReport, SerialsPastTheirColumnKeepTheLineWidth) {
  sheet_.SetRows(1);
  sheet_.SetRows(10002);
  const std::string report = PayInReportText(sheet_, Date{2010, 1, 6});
  const std::size_t end = report.rfind("\r\n");
  EXPECT_EQ(report.substr(end - 84, 10), "\r\n1000    ");
}

}  // namespace
}  // namespace tallyrun::testing
