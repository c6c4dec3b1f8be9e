#include <gtest/gtest.h>
#include <random>
#include <string>

#include "core/grid/ColumnFitter.h"

namespace tallyrun {
namespace {

TEST(ColumnFitterTest, WidensAsFittingEveryCellAloneDoes) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::array<int, 256> advances;
    for (int& advance : advances) advance = static_cast<int>(1 + random() % 15);
    if (seed % 2 == 0) std::fill(advances.begin() + '0', advances.begin() + '9' + 1, 7);

    FlexGrid fitted;
    FlexGrid expected;
    for (FlexGrid* grid : {&fitted, &expected}) {
      grid->SetCols(3);
      grid->SetRows(100);
      grid->SetMeasurer(TextMeasurer(advances, 96));
      for (int col = 0; col < 3; ++col) grid->SetColWidth(col, 500);
    }
    ColumnFitter fitter(fitted);
    for (int row = 0; row < 100; ++row) {
      const int col = static_cast<int>(random() % 3);
      std::string text = std::to_string(random() >> random() % 32);
      if (random() % 2 == 0) text.insert(0, 1, static_cast<char>('a' + random() % 4));
      const CellValue value = fitted.Intern(text);
      fitter.Fit(col, value);
      expected.SetText(row, col, text);
      FitColumnWidth(expected, row, col);
      for (int each = 0; each < 3; ++each) {
        ASSERT_EQ(fitted.ColWidth(each), expected.ColWidth(each)) << text;
      }
    }
  }
}

}  // namespace
}  // namespace tallyrun
