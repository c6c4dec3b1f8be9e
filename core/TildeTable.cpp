#include "core/TildeTable.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <vector>

#include "core/ColumnFitter.h"
#include "core/Conversion.h"
#include "core/RuntimeError.h"
#include "core/SeparatorScan.h"

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

// At least how many of the `wanted` bytes from `above` on stand from `below` on as well; perhaps
// more than wanted.
std::size_t CountSameBytes(std::string_view text, std::size_t above, std::size_t below,
                           std::size_t wanted) {
  using Word = std::uint64_t;
  static_assert(std::endian::native == std::endian::little);
  const auto wordAt = [text](std::size_t place) {
    Word word;
    std::memcpy(&word, text.data() + place, sizeof word);
    return word;
  };
  std::size_t count = 0;
  for (; count < wanted && below + count + sizeof(Word) <= text.size(); count += sizeof(Word)) {
    const Word differing = wordAt(above + count) ^ wordAt(below + count);
    if (differing != 0) return count + static_cast<std::size_t>(std::countr_zero(differing)) / 8;
  }
  while (count < wanted && below + count < text.size() &&
         text[above + count] == text[below + count]) {
    ++count;
  }
  return count;
}

// Fills the grid line by line. A sheet's columns mostly repeat what stands in the line above, so
// that a line is compared with that from every cell on, and whole runs of cells are taken over.
// The other pieces are looked for among all texts of the grid; and these are so many that what the
// pool will look at is fetched for some pieces together.
class TableReader {
 public:
  explicit TableReader(FlexGrid& grid)
      : grid_(grid),
        fitter_(grid),
        cols_(static_cast<std::size_t>(grid.Cols())),
        aboveBegins_(cols_ + 1),
        aboveCells_(cols_) {}

  // The next lines of the file, for which the grid has rows.
  void Read(const LineBlock& block) {
    text_ = block.text;
    aboveCols_ = 0;  // what stood above was read from the block before
    for (std::size_t place = 0; place < text_.size(); ++row_) place = ReadLine(place);
    FillGathered();
  }

 private:
  // Cells of one row, from `col` to `end`: as above, or one with a text of its own.
  struct Piece {
    int row;
    std::uint32_t col;
    std::uint32_t end;
    bool isAsAbove;
    FlexGrid::Interning interning;  // of a piece that is not
  };
  static constexpr std::size_t kGathered = 128;

  // Gives back where the next line begins.
  std::size_t ReadLine(const std::size_t lineBegin) {
    std::size_t place = lineBegin;
    std::size_t col = 0;
    for (bool isOver = false; !isOver;) {
      if (const std::size_t same = EndOfSame(col, place); same != col) {
        isOver = same == aboveCols_;
        place = TakeOver(col, same, place);
        col = same;
      } else {
        const std::size_t end = EndOfPiece(place);
        isOver = end == text_.size() || text_[end] != kCellMark;
        // An empty line has no piece at all.
        if (!isOver || end != lineBegin) GatherText(col++, place, end);
        place = std::min(text_.size(), end + (isOver ? kLineEnd.size() : 1));
      }
    }
    aboveCols_ = col;
    aboveBegins_[col] = place;
    return place;
  }

  // The column up to which, from `col` on, the line that goes on at `place` is as the one above.
  std::size_t EndOfSame(std::size_t col, std::size_t place) const {
    if (col >= aboveCols_) return col;
    const std::size_t begin = aboveBegins_[col];
    const std::size_t count = CountSameBytes(text_, begin, place, aboveBegins_[aboveCols_] - begin);
    while (col < aboveCols_ && aboveBegins_[col + 1] - begin <= count) ++col;
    return col;
  }

  std::size_t EndOfPiece(std::size_t place) const {
    for (;; ++place) {
      place = FindSeparator(text_, place, kCellMark, '\n');
      if (place == text_.size() || text_[place] == kCellMark) return place;
      if (place > 0 && text_[place - 1] == '\r') return place - 1;
    }
  }

  std::size_t TakeOver(std::size_t col, std::size_t end, std::size_t place) {
    Piece& piece = NextPiece(col, end);
    piece.isAsAbove = true;
    const std::size_t moved = place - aboveBegins_[col];
    const std::size_t placeBehind = aboveBegins_[end] + moved;
    for (; col < end; ++col) aboveBegins_[col] += moved;
    return placeBehind;
  }

  void GatherText(std::size_t col, std::size_t begin, std::size_t end) {
    if (col == cols_) {
      FillGathered();
      throw RuntimeError(ErrorKind::SubscriptOutOfRange);
    }
    Piece& piece = NextPiece(col, col + 1);
    piece.isAsAbove = false;
    piece.interning = FlexGrid::Interning(grid_, Trim(text_.substr(begin, end - begin)));
    aboveBegins_[col] = begin;
  }

  Piece& NextPiece(std::size_t col, std::size_t end) {
    if (gatheredCount_ == kGathered) FillGathered();
    Piece& piece = gathered_[gatheredCount_++];
    piece.row = row_;
    piece.col = static_cast<std::uint32_t>(col);
    piece.end = static_cast<std::uint32_t>(end);
    return piece;
  }

  void FillGathered() {
    const auto gathered = std::span(gathered_).first(gatheredCount_);
    for (const Piece& piece : gathered) {
      if (!piece.isAsAbove) grid_.PrefetchEntry(piece.interning);
    }
    for (const Piece& piece : gathered) {
      if (!piece.isAsAbove) grid_.PrefetchText(piece.interning);
    }
    for (const Piece& piece : gathered) {
      if (!piece.isAsAbove) {
        const CellValue cell = grid_.Intern(piece.interning);
        fitter_.Fit(static_cast<int>(piece.col), cell);
        aboveCells_[piece.col] = cell;
      }
      const auto cells = grid_.RowCells(piece.row);
      for (std::size_t col = piece.col; col < piece.end; ++col) cells[col] = aboveCells_[col];
    }
    gatheredCount_ = 0;
  }

  FlexGrid& grid_;
  ColumnFitter fitter_;
  const std::size_t cols_;
  std::string_view text_;  // the block at hand

  // The line above: how many cells it has, where they and the line behind it begin, and the cells
  // as far as they are filled.
  std::size_t aboveCols_ = 0;
  std::vector<std::size_t> aboveBegins_;
  std::vector<CellValue> aboveCells_;

  std::array<Piece, kGathered> gathered_;
  std::size_t gatheredCount_ = 0;
  int row_ = 0;
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
