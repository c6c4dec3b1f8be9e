// WriteTildeTable: a sheet as the text of a tilde table.
#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <vector>

#include "core/files/modFileIO.h"
#include "core/grid/TildeTable.h"

namespace tallyrun {
namespace {

void AppendWithoutLineEnds(TextWriter& writer, std::string_view text) {
  for (std::size_t end = text.find(kLineEnd); end != std::string_view::npos;
       end = text.find(kLineEnd)) {
    writer.Append(text.substr(0, end));
    text.remove_prefix(end + kLineEnd.size());
  }
  writer.Append(text);
}

// A sheet's columns mostly repeat what stands in the row above, so that whole runs of cells are
// copied from the line above. The other texts lie about in memory: they are fetched for some rows
// together.
class TableWriter {
 public:
  TableWriter(const FlexGrid& grid, TextWriter& writer)
      : grid_(grid),
        writer_(writer),
        cols_(static_cast<std::size_t>(grid.Cols())),
        comparedCols_(std::min<std::size_t>(cols_, std::numeric_limits<ColumnBits>::digits)),
        begins_(cols_ + 1) {}

  void Write() {
    const auto rows = static_cast<std::size_t>(grid_.Rows());
    for (std::size_t first = 0; first < rows; first += kGathered) {
      const std::size_t end = std::min(rows, first + kGathered);
      CompareRows(first, end);
      ForEachText(first, end, [this](CellValue text) { grid_.PrefetchText(text); });
      ForEachText(first, end,
                  [this](CellValue text) { __builtin_prefetch(grid_.TextOf(text).data()); });
      for (std::size_t row = first; row < end; ++row) {
        if (row > 0) writer_.Append('\n');
        WriteRow(row, changes_[row - first]);
      }
    }
  }

 private:
  using ColumnBits = std::uint64_t;
  static constexpr std::size_t kGathered = 64;

  // Sets the bits of the columns in which a row differs from the one above.
  void CompareRows(std::size_t first, std::size_t end) {
    changes_.fill(0);
    for (std::size_t col = 0; col < comparedCols_; ++col) {
      const auto cells = grid_.ColumnCells(static_cast<int>(col));
      const std::size_t begin = std::max<std::size_t>(first, 1);
      for (std::size_t row = begin; row < end; ++row) {
        const ColumnBits differs = cells[row] != cells[row - 1] ? 1 : 0;
        changes_[row - first] |= differs << col;
      }
    }
    if (first == 0) changes_[0] = ~ColumnBits{0};
  }

  // Visits the texts in which rows differ from those above.
  template <class Visit>
  void ForEachText(std::size_t first, std::size_t end, Visit&& visit) const {
    for (std::size_t row = first; row < end; ++row) {
      const auto cells = grid_.RowCells(static_cast<int>(row));
      for (std::size_t col = 0; (col = NextChange(changes_[row - first], col)) < comparedCols_;
           ++col) {
        if (!IsNumber(cells[col])) visit(cells[col]);
      }
    }
  }

  // The first column from `col` on in which the row differs from the one above; a column that was
  // not compared may.
  std::size_t NextChange(ColumnBits changes, std::size_t col) const {
    if (col >= comparedCols_) return col;
    return std::min(comparedCols_,
                    col + static_cast<std::size_t>(std::countr_zero(changes >> col)));
  }

  void WriteRow(std::size_t row, ColumnBits changes) {
    const auto cells = grid_.RowCells(static_cast<int>(row));
    for (std::size_t col = 0; col < cols_;) {
      std::size_t end = NextChange(changes, col);
      if (end == col || !WriteAsAbove(col, end)) {
        WriteCell(col, cells[col]);
        end = col + 1;
      }
      col = end;
    }
    begins_[cols_] = writer_.Position();
  }

  bool WriteAsAbove(std::size_t col, std::size_t end) {
    const std::uint64_t begin = writer_.Position();
    if (!writer_.AppendAgain(begins_[col], begins_[end])) return false;
    const std::uint64_t moved = begin - begins_[col];
    for (; col < end; ++col) begins_[col] += moved;
    return true;
  }

  void WriteCell(std::size_t col, CellValue cell) {
    begins_[col] = writer_.Position();
    if (IsNumber(cell)) {
      writer_.AppendNumber(NumberOf(cell));
    } else if (grid_.AnyLineEndInTexts()) {
      AppendWithoutLineEnds(writer_, grid_.TextOf(cell));
    } else {
      writer_.AppendStored(grid_.TextOf(cell));
    }
    writer_.Append(col + 1 < cols_ ? kCellMark : '\r');
  }

  const FlexGrid& grid_;
  TextWriter& writer_;
  const std::size_t cols_;
  const std::size_t comparedCols_;     // no more than there are bits
  std::vector<std::uint64_t> begins_;  // of the last line's cells, and its end
  std::array<ColumnBits, kGathered> changes_{};
};

}  // namespace

void WriteTildeTable(const FlexGrid& grid, const TextSink& sink) {
  TextWriter writer(sink);
  TableWriter(grid, writer).Write();
  writer.Finish();
}

}  // namespace tallyrun
