#include "core/TildeTable.h"

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
// texts of the grid.
class TableReader {
 public:
  TableReader(std::string_view text, FlexGrid& grid)
      : text_(text), grid_(grid), fitter_(grid), above_(static_cast<std::size_t>(grid.Cols())) {}

  void Read() {
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
    EndLine(text_.size());
  }

 private:
  struct Piece {
    std::string_view text;
    CellValue cell = CellValue::Empty;
  };

  // An empty line has no piece at all.
  void EndLine(std::size_t place) {
    if (place != lineBegin_) EndPiece(place);
  }

  void EndPiece(std::size_t place) {
    if (col_ == above_.size()) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
    const std::string_view text = Trim(text_.substr(pieceBegin_, place - pieceBegin_));
    pieceBegin_ = place + 1;
    Piece& above = above_[col_];
    if (!SameText(text, above.text)) {
      above = {text, grid_.Intern(text)};
      fitter_.Fit(static_cast<int>(col_), above.cell);
    }
    grid_.RowCells(row_)[col_] = above.cell;
    ++col_;
  }

  const std::string_view text_;
  FlexGrid& grid_;
  ColumnFitter fitter_;
  std::vector<Piece> above_;  // the last piece of each column

  int row_ = 0;
  std::size_t col_ = 0;
  std::size_t lineBegin_ = 0;
  std::size_t pieceBegin_ = 0;
};

}  // namespace

void WriteTildeTable(const FlexGrid& grid, const TextSink& sink) {
  TextWriter writer(sink);
  for (int row = 0; row < grid.Rows(); ++row) {
    if (row > 0) writer.Append('\n');
    const auto cells = grid.RowCells(row);
    AppendCell(writer, grid, cells.front());
    for (const CellValue cell : cells.subspan(1)) {
      writer.Append(kCellMark);
      AppendCell(writer, grid, cell);
    }
    writer.Append('\r');
  }
  writer.Finish();
}

void ReadTildeTable(std::string_view text, FlexGrid& grid) {
  grid.SetRows(text.empty() ? 0 : static_cast<int>(CountLineEnds(text)) + 1);
  TableReader(text, grid).Read();
}

}  // namespace tallyrun
