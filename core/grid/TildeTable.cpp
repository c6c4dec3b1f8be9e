#include "core/grid/TildeTable.h"

#include <algorithm>
#include <vector>

#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/GridRows.h"
#include "core/text/Characters.h"
#include "core/text/Split.h"

namespace tallyrun {
namespace {

void AppendWithoutLineEnds(std::string& text, std::string_view cell) {
  for (std::size_t end; (end = cell.find(kLineEnd)) != cell.npos;) {
    text += cell.substr(0, end);
    cell.remove_prefix(end + kLineEnd.size());
  }
  text += cell;
}

// A column's last piece and its cell: most lines repeat much of the line above.
struct Last {
  std::string_view piece;
  CellValue cell = CellValue::Empty;
};

void FillRows(std::string_view text, FlexGrid& grid) {
  std::vector<Last> lastOfCols(static_cast<std::size_t>(grid.Cols()));
  int row = 0;
  for (const std::string_view line : Pieces(text, kLineEnd)) {
    int col = 0;
    for (const std::string_view piece : Pieces(line, kCellSeparator)) {
      if (col == grid.Cols()) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
      Last& last = lastOfCols[static_cast<std::size_t>(col)];
      if (piece != last.piece) last = {piece, grid.Intern(Trim(piece))};
      grid.SetCell(row, col++, last.cell);
    }
    ++row;
  }
}

}  // namespace

std::string GridToText(const FlexGrid& grid) {
  std::string text;
  const int cols = grid.Cols();
  // Where the cells of the last line begin: most lines repeat much of the line above, whole runs of
  // cells at a time.
  std::vector<std::size_t> begins(static_cast<std::size_t>(cols) + 1);
  const auto begin = [&begins](int col) -> std::size_t& {
    return begins[static_cast<std::size_t>(col)];
  };
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int col = 0; col < cols;) {
      int end = col;
      while (row > 0 && end < cols && grid.Cell(row, end) == grid.Cell(row - 1, end)) ++end;
      if (end > col) {
        const std::size_t moved = text.size() - begin(col);
        text.append(text, begin(col), begin(end) - begin(col));
        for (; col < end; ++col) begin(col) += moved;
      } else {
        begin(col) = text.size();
        AppendWithoutLineEnds(text, grid.Text(row, col));
        text += ++col < cols ? kCellSeparator : kLineEnd;
      }
    }
    begin(cols) = text.size();
  }
  text.pop_back();
  return text;
}

void TextToGrid(std::string_view text, FlexGrid& grid) {
  if (text.empty()) throw RuntimeError(ErrorKind::InvalidCall);
  // A sheet has a data row at least: of captions alone the blank one stays.
  grid.SetRows(std::max(2, static_cast<int>(CountPieces(text, kLineEnd))));
  try {
    FillRows(text, grid);
  } catch (...) {
    FitAllColumns(grid);
    throw;
  }
  FitAllColumns(grid);
}

void SaveGridToFile(const FlexGrid& grid, const std::string& path) {
  WriteWholeFile(path, GridToText(grid));
}

bool LoadFileIntoGrid(const std::string& path, FlexGrid& grid) {
  try {
    ClearEntryGrid(grid);
    TextToGrid(ReadWholeFile(path), grid);
  } catch (const std::exception& error) {
    TellLoadFailure("Error loading file into list.", path, error);
    return false;
  }
  return true;
}

}  // namespace tallyrun
