#include "core/entry/RowChecks.h"
#include "core/masterlists/Lookups.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

struct RowChecksTest : ProgramFixture {
  RowChecksTest() {
    grid.SetCols(EntryColumn::kCount);
    for (int col = 0; col < grid.Cols(); ++col) {
      grid.SetText(0, col, kEntryCaptions[static_cast<std::size_t>(col)]);
    }
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
  EXPECT_FALSE(CheckColumnFilled(grid, EntryColumn::kCount));
  EXPECT_EQ(platform.TakeMessage(), (Message{"Subscript out of range"}));
}

TEST_F(RowChecksTest, UnknownNamesAreFoundByTheirMarkersAsTheyAreWritten) {
  grid.SetText(0, EntryColumn::kBoName, kBoNameNotFound);  // a caption is no row
  grid.SetText(1, EntryColumn::kBoName, "bo name not found");
  grid.SetText(2, EntryColumn::kBoName, " BO NAME NOT FOUND");
  EXPECT_FALSE(HasUnknownBoid(grid));
  EXPECT_FALSE(HasUnknownIsin(grid));
  grid.SetText(1, EntryColumn::kBoName, kBoNameNotFound);
  EXPECT_TRUE(HasUnknownBoid(grid));
  EXPECT_EQ(platform.TakeMessage().text, "BOID is not entered correctly in row number 1.");
  grid.SetText(2, EntryColumn::kIsinName, kIsinNameNotFound);
  EXPECT_TRUE(HasUnknownIsin(grid));
  EXPECT_EQ(platform.TakeMessage().text, "ISIN Code is not entered correctly in row number 2.");
}

TEST_F(RowChecksTest, ReferencesBeginWithTheLetterOfTheMode) {
  EXPECT_FALSE(HasWrongInternalRefPrefix(grid));
  grid.SetText(3, EntryColumn::kInternalRef, "i123");
  EXPECT_TRUE(HasWrongInternalRefPrefix(grid));
  EXPECT_EQ(platform.TakeMessage().text,
            "For Pay In entries Internal Ref. No. must start with \"I\" .\r\nCheck row number 3.");
  EntryMode = kPayOut;
  EXPECT_TRUE(HasWrongInternalRefPrefix(grid));
  EXPECT_EQ(platform.TakeMessage().text,
            "For Pay Out entries Internal Ref. No. must start with \"O\" .\r\nCheck row number 1.");
}

}  // namespace
}  // namespace tallyrun::testing
