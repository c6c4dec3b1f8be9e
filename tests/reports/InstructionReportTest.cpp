// Both reports against golden files, made from one sheet: an account under two client codes, rows
// of an account apart from each other, texts longer than their columns, and blanks.
#include "core/files/modFileIO.h"
#include "reports/InstructionReport.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

std::string Golden(const std::string& name) {
  return ReadBytes(std::string(TALLYRUN_TEST_DATA) + "/reports/" + name);
}

struct InstructionReport : ProgramFixture {
  InstructionReport() {
    Settings.clearingBoid = "1201950000000001";
    platform.programFolder = folder.Path().substr(0, folder.Path().size() - 1);
    grid.SetCols(EntryColumn::kCount);
    folder.Write("sheet.txt", Golden("sheet.txt"));
    LoadFileIntoGrid(folder / "sheet.txt", grid);
  }
};

TEST_F(InstructionReport, PayInIsWrittenByteForByteAndOpened) {
  BuildPayInReport(grid);
  EXPECT_EQ(folder.Read("PAY-IN INSTRUCTIONS"), Golden("pay-in.txt"));
  EXPECT_EQ(platform.started.at(0).commandLine,
            "notepad \"" + folder / "PAY-IN INSTRUCTIONS" + "\"");
  EXPECT_EQ(platform.started[0].mode, WindowMode::NormalFocus);
}

TEST_F(InstructionReport, PayOutReplacesTheOldReportAndCarriesSignatures) {
  folder.Write("PAY-OUT INSTRUCTIONS", "yesterday's");
  grid.SetRows(2);
  BuildPayOutReport(grid);
  EXPECT_EQ(folder.Read("PAY-OUT INSTRUCTIONS"), Golden("pay-out.txt"));
  EXPECT_FALSE(folder.Has("PAY-IN INSTRUCTIONS"));
}

TEST_F(InstructionReport, WhatFailsIsToldAndLeavesTheOldReportUnopened) {
  folder.Write("PAY-IN INSTRUCTIONS", "yesterday's");
  grid.SetRows(1);
  BuildPayInReport(grid);
  EXPECT_EQ(platform.TakeMessage(), Message{"Subscript out of range"});
  EXPECT_EQ(folder.Read("PAY-IN INSTRUCTIONS"), "yesterday's");
  EXPECT_TRUE(platform.started.empty());
}

TEST_F(InstructionReport, SerialsPastTheirColumnKeepTheLineWidth) {
  grid.SetRows(1);
  grid.SetRows(10002);
  const std::string report = PayInReportText(grid, Date{2010, 1, 6});
  const std::size_t end = report.rfind("\r\n");
  EXPECT_EQ(report.substr(end - 84, 10), "\r\n1000    ");
}

}  // namespace
}  // namespace tallyrun::testing
