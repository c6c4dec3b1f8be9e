// ReadTildeTable: the text of a tilde table as a sheet.
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "core/grid/ColumnFitter.h"
#include "core/grid/TildeTable.h"
#include "core/text/Conversion.h"
#include "core/text/SeparatorScan.h"

namespace tallyrun {
namespace {

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

void ReadTildeTable(LineBlocks& blocks, FlexGrid& grid) {
  LineBlocks::Buffer buffer;
  LineBlock block = blocks.Next(buffer);
  const auto lines = [&block] { return static_cast<int>(CountLineEnds(block.text)); };
  if (block.isLast && block.text.empty()) grid.SetRows(0);
  grid.ReserveRows(blocks.LinesToExpect());
  grid.SetRows(lines() + 1);
  TableReader reader(grid);
  try {
    for (; !block.isLast; grid.SetRows(grid.Rows() + lines())) {
      reader.Read(block);
      block = blocks.Next(buffer);
    }
    reader.Read(block);
  } catch (...) {
    // The lines that were never reached have their rows all the same.
    for (; !block.isLast; grid.SetRows(grid.Rows() + lines())) block = blocks.Next(buffer);
    throw;
  }
}

}  // namespace tallyrun
