#include <gtest/gtest.h>

#include "core/EntryRow.h"
#include "core/Settings.h"
#include "reports/InstructionReport.h"
#include "tests/support/GridText.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestData.h"

namespace tallyrun::testing {
namespace {

struct ReportRow {
  const char* brokerId;
  const char* tradeDate;
  const char* deliveryDate;
  const char* clientCode;
  const char* boId;
  const char* boName;
  const char* isinCode;
  const char* isinName;
  const char* quantity;
};

const std::vector<ReportRow> kDay = {
    {"123456", "05-Jan-2010", "08-Jan-2010", "C001", "1201950000000017", "ANITA MEHROTRA",
     "INE0AA101011", "ALPHA CEMENTS LTD", "500"},
    {"123456", "05-Jan-2010", "08-Jan-2010", "C001", "1201950000000017", "ANITA MEHROTRA",
     "INE0BB202022", "BETA MILLS", "1200"},
    // The same account under another client code; header values that must not be taken.
    {"999999", "05-Jan-10", "09-Jan-2010", "C002", "1201950000000017", "ANITA MEHROTRA",
     "INE0AA101011", "ALPHA CEMENTS LTD", "7"},
    // Every text is longer than its column.
    {"123456", "5-Jan", "08-Jan-2010", "CLIENT-CODE-TOO-LONG", "12019500000000999",
     "JOS\xC9 XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXYZ", "INE0CC3030330123X",
     "A NAME OF FORTY CHARACTERS, CUT AT 32 (XX", "12345678901"},
    // The first account again, not beside its other rows.
    {"123456", "05-Jan-2010", "08-Jan-2010", "C001", "1201950000000017", "ANITA MEHROTRA",
     "INE0DD404044", "GAMMA", "0500"},
    // A client code in another letter case is another account; the rest is blank.
    {"123456", "", "08-Jan-2010", "c001", "1201950000000017", "ANITA MEHROTRA", "", "", ""},
};

class InstructionReport : public ::testing::Test {
 protected:
  InstructionReport() {
    Settings.clearingBoid = "1201950000000001";
    platform_.programFolder = folder_.Path().substr(0, folder_.Path().size() - 1);
    entries_.SetCols(EntryColumn::kCount);
  }
  ~InstructionReport() override { Settings = {}; }

  void Fill(std::size_t rows) {
    std::vector<std::string> texts;
    for (std::size_t index = 0; index < rows; ++index) {
      const ReportRow& row = kDay[index];
      texts.push_back(EntryCells({{EntryColumn::kBrokerId, row.brokerId},
                                  {EntryColumn::kTradeDate, row.tradeDate},
                                  {EntryColumn::kDeliveryDate, row.deliveryDate},
                                  {EntryColumn::kClientCode, row.clientCode},
                                  {EntryColumn::kBoId, row.boId},
                                  {EntryColumn::kBoName, row.boName},
                                  {EntryColumn::kIsinCode, row.isinCode},
                                  {EntryColumn::kIsinName, row.isinName},
                                  {EntryColumn::kQuantity, row.quantity}}));
    }
    FillRows(entries_, texts);
  }

  RecordingPlatform platform_;
  TempFolder folder_;
  FlexGrid entries_;
};

TEST(PadText, CutsOrFillsToTheWidth) {
  EXPECT_EQ(PadText("", 3), "   ");
  EXPECT_EQ(PadText("ab", 4), "ab  ");
  EXPECT_EQ(PadText("ab", 4, true), "  ab");
  EXPECT_EQ(PadText("abcd", 4, true), "abcd");
  EXPECT_EQ(PadText("abcdef", 4), "abcd");
  EXPECT_EQ(PadText("abcdef", 4, true), "abcd");
}

TEST_F(InstructionReport, PayInIsWrittenByteForByteAndOpened) {
  Fill(kDay.size());
  BuildPayInReport(entries_);
  EXPECT_EQ(folder_.Read("PAY-IN INSTRUCTIONS"), TestData("reports/pay-in.txt"));
  ASSERT_EQ(platform_.started.size(), 1u);
  EXPECT_EQ(platform_.started[0].commandLine,
            "notepad \"" + folder_ / "PAY-IN INSTRUCTIONS" + "\"");
  EXPECT_EQ(platform_.started[0].mode, WindowMode::NormalFocus);
}

TEST_F(InstructionReport, PayOutReplacesTheOldReportAndCarriesSignatures) {
  folder_.Write("PAY-OUT INSTRUCTIONS", "yesterday's");
  Fill(1);
  BuildPayOutReport(entries_);
  EXPECT_EQ(folder_.Read("PAY-OUT INSTRUCTIONS"), TestData("reports/pay-out.txt"));
  EXPECT_FALSE(folder_.Has("PAY-IN INSTRUCTIONS"));
  EXPECT_TRUE(platform_.messages.empty());
}

TEST_F(InstructionReport, WithoutRowsTheOldReportStaysAndNoEditorOpens) {
  folder_.Write("PAY-IN INSTRUCTIONS", "yesterday's");
  entries_.SetRows(1);
  BuildPayInReport(entries_);
  EXPECT_EQ(platform_.TakeMessage(), Message{"Subscript out of range"});
  EXPECT_EQ(folder_.Read("PAY-IN INSTRUCTIONS"), "yesterday's");
  EXPECT_TRUE(platform_.started.empty());
}

TEST_F(InstructionReport, AFolderThatCannotBeWrittenIsToldAndNoEditorOpens) {
  Fill(1);
  platform_.programFolder += "\\gone";
  BuildPayInReport(entries_);
  EXPECT_EQ(platform_.TakeMessage(), Message{"Path not found"});
  EXPECT_TRUE(platform_.started.empty());
}

TEST_F(InstructionReport, SerialsPastTheirColumnKeepTheLineWidth) {
  entries_.SetRows(10002);
  const std::string report = PayInReportText(entries_, Date{2010, 1, 6});
  const std::size_t end = report.rfind("\r\n");
  EXPECT_EQ(report.substr(end - 84, 10), "\r\n1000    ");
}

}  // namespace
}  // namespace tallyrun::testing
