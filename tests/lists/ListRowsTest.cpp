#include <gtest/gtest.h>

#include "lists/ListKind.h"
#include "lists/ListRows.h"
#include "tests/support/GridText.h"
#include "tests/support/RecordingPlatform.h"

namespace tallyrun::testing {
namespace {

class ListRows : public ::testing::Test {
 protected:
  ListRows() { LayOutListGrid(grid_, kBoKind); }

  FlexGrid grid_;
};

TEST_F(ListRows, TheFirstRowWithTheTextInAnyDataCellIsFound) {
  FillRows(grid_, {"1|1201950000000017|ANITA MEHROTRA|C001", "2|1201950000000025|abc TRADERS|C002",
                   "3|1201950000000033|JOS\xC9 ABC|C 14", "4|14|ABC|C006"});
  const struct {
    const char* text;
    int row;
  } cases[] = {
      {"14", 3},   // row order comes before column order
      {"ABC", 3},  // letter case counts
      {"abc", 2},       {"C 1", 3}, {"C006", 4},
      {"\xC9", 3},      {"4", 3},  // the S/N column is passed over
      {"MEHROTRAC", 0},            // no text spans two cells
      {"nobody", 0},
  };
  for (const auto& each : cases) EXPECT_EQ(FindRowContaining(grid_, each.text), each.row);
}

TEST_F(ListRows, AFoundRowIsScrolledToOnlyWhenOutOfSight) {
  grid_.SetRows(101);
  grid_.SetPageRows(10);
  ShowFoundRow(grid_, 5);
  EXPECT_EQ(grid_.TopRow(), 1);
  ShowFoundRow(grid_, 50);
  EXPECT_EQ(grid_.TopRow(), 50);
  EXPECT_EQ(grid_.Row(), 50);
  EXPECT_EQ(grid_.RowSel(), 50);
  EXPECT_EQ(grid_.Col(), 0);
  EXPECT_EQ(grid_.ColSel(), 2);
}

TEST_F(ListRows, ABlankRowIsOneWithNothingButBlanksInItsDataCells) {
  const struct {
    std::vector<std::string> rows;
    int blank;
  } cases[] = {
      {{"1|||"}, 1},
      {{"1|a||", "2||b|", "3|||c"}, 0},
      {{"1|a||", "2|  | |", "3|||"}, 2},
      {{"1|a||", "2|||\r"}, 0},  // what ends a file is text
  };
  for (const auto& each : cases) {
    FillRows(grid_, each.rows);
    EXPECT_EQ(FindBlankRow(grid_), each.blank) << ::testing::PrintToString(each.rows);
  }
  grid_.SetRows(1);
  EXPECT_EQ(FindBlankRow(grid_), 0);
}

TEST_F(ListRows, TheBlankRowIsToldShownAndSelected) {
  RecordingPlatform platform;
  std::vector<std::string> rows(100, "1|a|b|c");
  rows[59] = "60|||";
  FillRows(grid_, rows);
  grid_.SetPageRows(10);
  EXPECT_TRUE(HasBlankRow(grid_));
  EXPECT_EQ(platform.TakeMessage(), (Message{"Blank row (row number 60) cannot be saved.",
                                             "Blank Row Found.", MessageIcon::Critical}));
  EXPECT_EQ(grid_.TopRow(), 60);
  EXPECT_EQ(grid_.Row(), 60);
  EXPECT_EQ(grid_.Col(), 0);
  EXPECT_EQ(grid_.ColSel(), 3);
  grid_.SetText(60, 3, "C060");
  EXPECT_FALSE(HasBlankRow(grid_));
}

TEST(TellNotInList, TheTitleNamesBosForEitherList) {
  RecordingPlatform platform;
  TellNotInList(kIsinKind);
  EXPECT_EQ(platform.TakeMessage(), (Message{"There is no such ISIN in the list.", "BO Not Found.",
                                             MessageIcon::Critical}));
}

}  // namespace
}  // namespace tallyrun::testing
