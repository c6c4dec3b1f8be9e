// The tilde table's reader and writer against plain ones, cell by cell.
#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "core/RuntimeError.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/TildeTable.h"
#include "core/text/Conversion.h"
#include "core/text/Split.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

std::string PlainText(const FlexGrid& grid) {
  std::string text;
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int col = 0; col < grid.Cols(); ++col) {
      std::string cell = grid.Text(row, col);
      for (std::size_t at; (at = cell.find("\r\n")) != std::string::npos;) cell.erase(at, 2);
      text += cell + (col + 1 < grid.Cols() ? "~" : "\r\n");
    }
  }
  text.pop_back();
  return text;
}

void ReadPlainly(std::string_view text, FlexGrid& grid) {
  const auto lines = Split(text, "\r\n");
  if (text.empty()) throw RuntimeError(ErrorKind::InvalidCall);
  grid.SetRows(std::max(2, static_cast<int>(lines.size())));
  int row = 0;
  for (const std::string_view line : lines) {
    int col = 0;
    for (const std::string_view piece : Split(line, "~")) {
      grid.SetText(row, col, Trim(piece));
      FitColumnWidth(grid, row, col++);
    }
    ++row;
  }
}

std::string RandomTable(std::mt19937& random) {
  static const auto kPieces = Split(
      "~|~|~|\r\n|\r\n|\r|\n| |7|07|123456789|1234567890|A name|longer than thirty-two bytes, all "
      "told",
      "|");
  std::string text;
  for (auto left = random() % (random() % 50 == 0 ? 30'000 : 60); left > 0; --left)
    // Lines repeat what stands above, or nearly.
    text += random() % 8 == 0
                ? text.substr(text.size() - std::min<std::size_t>(text.size(), random() % 60))
                : std::string(kPieces[random() % kPieces.size()]);
  return text;
}

TEST(TildeTableTest, ReadsAndWritesAsAPlainLoopDoes) {
  int read = 0;
  for (unsigned seed = 1; seed <= 500; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const int cols = seed % 10 == 0 ? 70 : 4;
    const std::string text = RandomTable(random);
    FlexGrid grid;
    FlexGrid expected;
    for (FlexGrid* each : {&grid, &expected}) {
      each->SetCols(cols);
      each->SetRows(2);
      each->SetColWidth(0, 2000);
      each->SetText(1, 0, "1");
    }
    const std::string error = ErrorOf([&] { ReadPlainly(text, expected); });
    ASSERT_EQ(ErrorOf([&] { TextToGrid(text, grid); }), error);
    ASSERT_EQ(RowsOf(grid), RowsOf(expected));
    for (int col = 0; col < cols; ++col) ASSERT_EQ(grid.ColWidth(col), expected.ColWidth(col));
    ASSERT_EQ(GridToText(grid), PlainText(expected));
    read += error.empty() ? 1 : 0;
  }
  EXPECT_GT(read, 80) << "few cases were a table";
}

}  // namespace
}  // namespace tallyrun::testing
