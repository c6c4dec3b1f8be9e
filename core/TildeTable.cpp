#include "core/TildeTable.h"

#include <algorithm>
#include <array>
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

void AppendCell(TextWriter& writer, const FlexGrid& grid, CellValue cell) {
  if (IsNumber(cell)) return writer.AppendNumber(NumberOf(cell));
  const std::string_view text = grid.TextOf(cell);
  if (grid.AnyLineEndInTexts()) {
    AppendWithoutLineEnds(writer, text);
  } else {
    writer.AppendStored(text);
  }
}

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
  const auto cols = static_cast<std::size_t>(grid.Cols());
  for (int row = 0; row < grid.Rows(); ++row) {
    if (row > 0) writer.Append('\n');
    const auto cells = grid.RowCells(row);
    AppendCell(writer, grid, cells[0]);
    for (std::size_t col = 1; col < cols; ++col) {
      writer.Append(kCellMark);
      AppendCell(writer, grid, cells[col]);
    }
    writer.Append('\r');
  }
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
