#include "core/TildeTable.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "core/ColumnFitter.h"
#include "core/Conversion.h"
#include "core/RuntimeError.h"
#include "core/SeparatorScan.h"
#include "core/ShortText.h"

namespace tallyrun {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

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
        changes_[row - first] |= ColumnBits{cells[row] != cells[row - 1]} << col;
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

// Fills the grid from the places of all separators in turn. A sheet's columns mostly repeat what
// stands in the line above, so a piece is compared with that before it is looked for among all
// texts of the grid; and these are so many that what the pool will look at is fetched for some
// lines together.
class TableReader {
 public:
  explicit TableReader(FlexGrid& grid)
      : grid_(grid),
        fitter_(grid),
        above_(static_cast<std::size_t>(grid.Cols())),
        aboveCells_(above_.size()) {}

  // The next lines of the file, for which the grid has rows.
  void Read(const LineBlock& block) {
    text_ = block.text;
    lineBegin_ = pieceBegin_ = 0;
    // What stood above was read from the block before.
    std::fill(above_.begin(), above_.end(), std::string_view());
    std::fill(aboveCells_.begin(), aboveCells_.end(), CellValue::Empty);
    ForEachSeparator(text_, kCellMark, '\n', [this](std::size_t place) {
      if (text_[place] == kCellMark) {
        EndPiece(place);
      } else if (place > 0 && text_[place - 1] == '\r') {
        EndLine(place - 1);
        lineBegin_ = pieceBegin_ = place + 1;
        ++row_;
        col_ = 0;
      }
    });
    if (block.isLast) EndLine(text_.size());
    FillGathered();
  }

 private:
  struct Piece {
    int row;
    std::uint32_t col;
    bool isAsAbove;
    FlexGrid::Interning interning;  // of a piece that is not
  };
  static constexpr std::size_t kGathered = 128;

  // An empty line has no piece at all.
  void EndLine(std::size_t place) {
    if (place != lineBegin_) EndPiece(place);
  }

  void EndPiece(std::size_t place) {
    if (col_ == above_.size()) {
      FillGathered();
      throw RuntimeError(ErrorKind::SubscriptOutOfRange);
    }
    const std::string_view text = Trim(text_.substr(pieceBegin_, place - pieceBegin_));
    pieceBegin_ = place + 1;
    Piece& piece = gathered_[gatheredCount_++];
    piece.row = row_;
    piece.col = static_cast<std::uint32_t>(col_);
    piece.isAsAbove = SameText(text, above_[col_]);
    if (!piece.isAsAbove) {
      above_[col_] = text;
      piece.interning = FlexGrid::Interning(grid_, text);
    }
    if (gatheredCount_ == kGathered) FillGathered();
    ++col_;
  }

  void FillGathered() {
    for (const Piece& piece : std::span(gathered_).first(gatheredCount_)) {
      CellValue& cell = aboveCells_[piece.col];
      if (!piece.isAsAbove) {
        cell = grid_.Intern(piece.interning);
        fitter_.Fit(static_cast<int>(piece.col), cell);
      }
      grid_.RowCells(piece.row)[piece.col] = cell;
    }
    gatheredCount_ = 0;
  }

  FlexGrid& grid_;
  ColumnFitter fitter_;
  std::string_view text_;                // the block at hand
  std::vector<std::string_view> above_;  // the last piece of each column in it, ...
  std::vector<CellValue> aboveCells_;    // ... and its cell, as far as cells are filled
  std::array<Piece, kGathered> gathered_;
  std::size_t gatheredCount_ = 0;

  int row_ = 0;
  std::size_t col_ = 0;
  std::size_t lineBegin_ = 0;
  std::size_t pieceBegin_ = 0;
};

}  // namespace

void WriteTildeTable(const FlexGrid& grid, const TextSink& sink) {
  TextWriter writer(sink);
  TableWriter(grid, writer).Write();
  writer.Finish();
}

void ReadTildeTable(LineBlocks& blocks, FlexGrid& grid) {
  LineBlock block = blocks.Next();
  const auto lines = [&block] { return static_cast<int>(CountLineEnds(block.text)); };
  if (block.isLast && block.text.empty()) grid.SetRows(0);
  grid.ReserveRows(blocks.LinesToExpect(block));
  grid.SetRows(lines() + 1);
  TableReader reader(grid);
  try {
    for (; !block.isLast; grid.SetRows(grid.Rows() + lines())) {
      reader.Read(block);
      block = blocks.Next();
    }
    reader.Read(block);
  } catch (...) {
    // The lines that were never reached have their rows all the same.
    for (; !block.isLast; grid.SetRows(grid.Rows() + lines())) block = blocks.Next();
    throw;
  }
}

}  // namespace tallyrun
