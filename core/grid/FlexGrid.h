// A grid's data: cell texts, column widths, the current cell, the selected block and the scroll
// position. Knows no window; a view observes it and paints. Row 0 holds the captions; rows and
// columns count from 0. Indexing outside the grid raises SubscriptOutOfRange.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/grid/CellTable.h"
#include "core/grid/TextMeasurer.h"
#include "core/grid/TextPool.h"

namespace tallyrun {

// True for a cell that is held as a number, false for a text of the pool.
constexpr bool IsNumber(CellValue value) {
  return (static_cast<std::uint32_t>(value) & 0x80000000u) != 0;
}

// The number that such a cell holds, and the cell for a number below a thousand million.
constexpr std::uint32_t NumberOf(CellValue value) {
  return static_cast<std::uint32_t>(value) & 0x7FFFFFFFu;
}
constexpr CellValue NumberCell(int number) {
  return static_cast<CellValue>(static_cast<std::uint32_t>(number) | 0x80000000u);
}

// Room for the digits of a cell that is held as a number.
using CellScratch = std::array<char, 12>;

// Told of changes by the grid it watches.
class FlexGridObserver {
 public:
  virtual ~FlexGridObserver() = default;
  // Something that is painted has changed. Told once; not again until TakeChanges().
  virtual void GridChanged() = 0;
  // The first visible row or column has changed; told at once, every time.
  virtual void GridScrolled() = 0;
};

class FlexGrid {
 public:
  FlexGrid();
  FlexGrid(const FlexGrid&) = delete;
  FlexGrid& operator=(const FlexGrid&) = delete;

  int Rows() const { return static_cast<int>(cells_.Rows()); }
  int Cols() const { return static_cast<int>(cells_.Cols()); }
  // New cells are empty; the current cell and the selection are drawn back inside. At least the
  // caption row and one column stay: less raises InvalidCall.
  void SetRows(int rows);
  void SetCols(int cols);
  // Room for as many rows, so that growing to them moves nothing. Changes nothing that is seen.
  void ReserveRows(std::size_t rows) {
    cells_.ReserveRows(rows);
    pool_.Reserve(rows / kRowsOfText);
  }
  // Takes out data rows `first` to `last`. What stood on a later row moves up with it; what stood
  // on a removed one comes to stand on the row that took its place.
  void RemoveRows(int first, int last);

  std::string Text(int row, int col) const;
  void SetText(int row, int col, std::string_view text);
  // The text without a copy; `scratch` holds it when the cell is a number.
  std::string_view View(int row, int col, CellScratch& scratch) const {
    return View(Cell(row, col), scratch);
  }
  std::string_view View(CellValue value, CellScratch& scratch) const {
    return IsNumber(value) ? WriteNumber(value, scratch) : TextOf(value);
  }

  // The text of a value that is no number; kReadableBehindText bytes can be read behind it.
  std::string_view TextOf(CellValue value) const {
    return pool_.View(static_cast<std::uint32_t>(value));
  }
  // Whether the text is empty or blanks alone.
  bool IsBlank(CellValue value) const {
    if (value == CellValue::Empty) return true;
    return pool_.AnyBlankText() && !IsNumber(value) && IsBlankText(TextOf(value));
  }
  // Fetches what TextOf looks at, for a text that is wanted a little later.
  void PrefetchText(CellValue value) const {
    pool_.PrefetchView(static_cast<std::uint32_t>(value));
  }
  // False when no cell's text can have a CR LF in it.
  bool AnyLineEndInTexts() const { return pool_.AnyLineEnd(); }

  CellValue Cell(int row, int col) const {
    RequireRow(row);
    RequireCol(col);
    return cells_.At(static_cast<std::size_t>(row), static_cast<std::size_t>(col));
  }
  void SetCell(int row, int col, CellValue value) {
    RequireRow(row);
    RequireCol(col);
    cells_.At(static_cast<std::size_t>(row), static_cast<std::size_t>(col)) = value;
    MarkChanged();
  }
  CellValue Intern(std::string_view text);
  // Of the number's decimal writing.
  CellValue InternNumber(std::int32_t number);
  // Intern in two steps, for whoever has many texts: what the second will look at is fetched
  // meanwhile.
  class Interning {
   public:
    Interning() = default;
    Interning(const FlexGrid& grid, std::string_view text);

   private:
    friend class FlexGrid;
    CellValue cell_ = CellValue::Empty;  // of a number
    TextKey key_;                        // of any other text
  };
  CellValue Intern(const Interning& begun) {
    if (begun.cell_ != CellValue::Empty || begun.key_.text.empty()) return begun.cell_;
    return static_cast<CellValue>(pool_.Intern(begun.key_));
  }
  // Steps in between, each fetching what the next will look at.
  void PrefetchEntry(const Interning& begun) const {
    if (begun.cell_ == CellValue::Empty) pool_.PrefetchEntry(begun.key_);
  }
  void PrefetchText(const Interning& begun) const {
    if (begun.cell_ == CellValue::Empty) pool_.PrefetchText(begun.key_);
  }
  // A row's cells by column and a column's cells by row, for a pass that handles many: checked
  // once, and good until rows or columns are set. A pass that writes marks the grid as changed.
  CellsOfRow<const CellValue> RowCells(int row) const {
    RequireRow(row);
    return cells_.Row(static_cast<std::size_t>(row));
  }
  CellsOfRow<CellValue> RowCells(int row) {
    RequireRow(row);
    MarkChanged();
    return cells_.Row(static_cast<std::size_t>(row));
  }
  std::span<const CellValue> ColumnCells(int col) const {
    RequireCol(col);
    return cells_.Column(static_cast<std::size_t>(col));
  }
  std::span<CellValue> ColumnCells(int col) {
    RequireCol(col);
    MarkChanged();
    return cells_.Column(static_cast<std::size_t>(col));
  }
  // The texts a cell can hold: every CellValue that is no number lies below this.
  std::size_t DistinctTexts() const { return pool_.Size(); }
  // The same for as long as a CellValue stands for the same text.
  std::uint64_t TextEdition() const { return pool_.Edition(); }

  // Puts the data rows into a new order: row 1 + i becomes what row order[i] was. `order` holds
  // every data row once.
  void ReorderRows(const std::vector<std::uint32_t>& order);

  // Column widths in twips.
  int ColWidth(int col) const;
  void SetColWidth(int col, int twips);
  const TextMeasurer& Measurer() const { return measurer_; }
  void SetMeasurer(const TextMeasurer& measurer) { measurer_ = measurer; }

  // The current cell. Setting either collapses the selection to it.
  int Row() const { return row_; }
  int Col() const { return col_; }
  void SetRow(int row);
  void SetCol(int col);
  // The selection's other corner; may lie above or left of the current cell.
  int RowSel() const { return rowSel_; }
  int ColSel() const { return colSel_; }
  void SetRowSel(int row);
  void SetColSel(int col);
  // The whole row, its first cell current.
  void SelectRow(int row);

  // The first visible data row (from 1) and column. Setting clamps: never past the row that still
  // fills the window, nor past the last column.
  int TopRow() const { return topRow_; }
  void SetTopRow(int row);
  int LeftCol() const { return leftCol_; }
  void SetLeftCol(int col);
  // Whole rows that the view has room for; given by the view.
  int PageRows() const { return pageRows_; }
  void SetPageRows(int rows);
  bool IsRowVisible(int row) const { return row >= topRow_ && row < topRow_ + pageRows_; }

  // The observer must outlive the grid or be taken off with nullptr.
  void SetObserver(FlexGridObserver* observer) { observer_ = observer; }
  // True when anything changed since the last call; arms GridChanged again.
  bool TakeChanges();

 private:
  // A sheet has about one text of its own in as many rows; the others it shares or are numbers.
  static constexpr std::size_t kRowsOfText = 4;

  // One comparison a side, negative numbers included: this stands in every loop over cells.
  void RequireRow(int row) const {
    if (static_cast<unsigned>(row) >= cells_.Rows()) RaiseOutOfRange();
  }
  void RequireCol(int col) const {
    if (static_cast<unsigned>(col) >= cells_.Cols()) RaiseOutOfRange();
  }
  [[noreturn]] static void RaiseOutOfRange();
  void MarkChanged() {
    if (changed_) return;
    changed_ = true;
    if (observer_ != nullptr) observer_->GridChanged();
  }
  static std::string_view WriteNumber(CellValue number, CellScratch& scratch);
  void RequireEveryRowOnce(const std::vector<std::uint32_t>& order) const;
  int MaxTopRow() const;
  void DrawInside(int topRow);
  void ForgetUnusedTexts();

  CellTable cells_;
  TextPool pool_;
  std::vector<int> colWidths_;
  TextMeasurer measurer_;

  int row_ = 0;
  int col_ = 0;
  int rowSel_ = 0;
  int colSel_ = 0;
  int topRow_ = 1;
  int leftCol_ = 0;
  int pageRows_ = 1;

  FlexGridObserver* observer_ = nullptr;
  bool changed_ = false;
};

}  // namespace tallyrun
