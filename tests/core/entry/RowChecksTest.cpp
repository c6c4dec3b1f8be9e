#include "core/entry/RowChecks.h"
#include "core/masterlists/Lookups.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

struct RowChecksTest : ProgramFixture {
  RowChecksTest() {
    grid.SetCols(EntryColumn::kCount);
    grid.SetText(0, EntryColumn::kClientCode, "Client Code");
    FillRows(grid, std::vector<std::string>(5, "1|a|b|c|d|e|f|g|h|i|j|k|I1"));
    EntryMode = kPayIn;
  }
};

TEST_F(RowChecksTest, TheLeftmostColumnWithABlankIsReportedAndItsCellShown) {
  grid.SetText(2, EntryColumn::kSerial, "");      // never looked at
  grid.SetText(1, EntryColumn::kBrokerId, "\t");  // no blank
  EXPECT_FALSE(HasMissingField(grid));
  grid.SetText(3, EntryColumn::kQuantity, "");
  grid.SetText(5, EntryColumn::kClientCode, "   ");
  grid.SetPageRows(2);
  grid.SetLeftCol(EntryColumn::kIsinCode);
  EXPECT_TRUE(HasMissingField(grid));
  EXPECT_EQ(platform.TakeMessage(), (Message{"Client Code is not given in row number 5.",
                                             "Missing Client Code", MessageIcon::Critical}));
  EXPECT_EQ(grid.Col(), EntryColumn::kClientCode);
  EXPECT_EQ(grid.Row(), 5);
  EXPECT_TRUE(grid.IsRowVisible(5));
  EXPECT_LE(grid.LeftCol(), EntryColumn::kClientCode);
}

TEST_F(RowChecksTest, MarkersAndLettersCountAsTheyAreWritten) {
  grid.SetText(0, EntryColumn::kBoName, kBoNameNotFound);  // a caption is no row
  grid.SetText(1, EntryColumn::kBoName, "bo name not found");
  grid.SetText(2, EntryColumn::kIsinName, " ISIN NAME NOT FOUND");
  EXPECT_FALSE(HasUnknownBoid(grid) || HasUnknownIsin(grid) || HasWrongInternalRefPrefix(grid));
  grid.SetText(3, EntryColumn::kInternalRef, "i123");
  EXPECT_TRUE(HasWrongInternalRefPrefix(grid));
  EntryMode = kPayOut;
  EXPECT_TRUE(HasWrongInternalRefPrefix(grid));
  EXPECT_TRUE(platform.messages[0].text.ends_with("row number 3."));
  EXPECT_EQ(platform.messages[1].text,
            "For Pay Out entries Internal Ref. No. must start with \"O\" .\r\nCheck row number 1.");
}

}  // namespace
}  // namespace tallyrun::testing
