// A grid's cells: texts by row and column, and the columns' widths. Row 0 holds the captions; rows
// and columns count from 0. Indexing outside the grid raises SubscriptOutOfRange. Knows neither the
// current cell nor a window; a view observes it and paints.
//
// The cells are held column after column as CellValues: a pass over a large sheet looks at a few of
// its columns, and rows compare, sort and copy as numbers.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/grid/CellValue.h"
#include "core/grid/TextMeasurer.h"
#include "core/text/TextTable.h"

namespace tallyrun {

// Told of changes by the grid it watches.
class GridObserver {
 public:
  virtual ~GridObserver() = default;
  // Something that is painted has changed. Told once; not again until TakeChanges().
  virtual void GridChanged() = 0;
  // The first visible row or column has changed; told at once, every time.
  virtual void GridScrolled() = 0;
};

class GridCells {
 public:
  GridCells(const GridCells&) = delete;
  GridCells& operator=(const GridCells&) = delete;

  int Rows() const { return static_cast<int>(columns_.front().size()); }
  int Cols() const { return static_cast<int>(columns_.size()); }

  CellText Text(int row, int col) const { return Text(Cell(row, col)); }
  CellText Text(CellValue value) const {
    return IsNumber(value) ? CellText(NumberOf(value))
                           : CellText(texts_.Text(static_cast<std::uint32_t>(value)));
  }
  void SetText(int row, int col, std::string_view text);

  CellValue Cell(int row, int col) const {
    RequireInside(row, col);
    return columns_[static_cast<std::size_t>(col)][static_cast<std::size_t>(row)];
  }
  void SetCell(int row, int col, CellValue value) {
    RequireInside(row, col);
    columns_[static_cast<std::size_t>(col)][static_cast<std::size_t>(row)] = value;
    MarkChanged();
  }
  // The value of a cell with this text.
  CellValue Intern(std::string_view text);

  // The column's cells, top to bottom.
  const std::vector<CellValue>& Column(int col) const {
    RequireInside(0, col);
    return columns_[static_cast<std::size_t>(col)];
  }

  // Puts the data rows into a new order: row 1 + i becomes what row order[i] was. Raises
  // InvalidCall unless `order` holds every data row once.
  void ReorderRows(const std::vector<std::uint32_t>& order);

  // Column widths in twips.
  int ColWidth(int col) const;
  void SetColWidth(int col, int twips);
  const TextMeasurer& Measurer() const { return measurer_; }
  void SetMeasurer(const TextMeasurer& measurer) { measurer_ = measurer; }

  // The observer must outlive the grid or be taken off with nullptr.
  void SetObserver(GridObserver* observer) { observer_ = observer; }
  // True when anything changed since the last call; arms GridChanged again.
  bool TakeChanges();

 protected:
  GridCells();
  ~GridCells() = default;

  // New cells are empty.
  void ResizeRows(int rows);
  void ResizeCols(int cols);
  void EraseRows(int first, int last);
  // Once most of the stored texts stand in no cell any more, those that do are stored anew.
  void ForgetUnusedTexts();

  // One comparison for each, negative numbers included: this stands in every loop over cells.
  void RequireInside(int row, int col) const {
    if (static_cast<std::size_t>(col) >= columns_.size() ||
        static_cast<std::size_t>(row) >= columns_.front().size()) {
      RaiseOutOfRange();
    }
  }
  void MarkChanged() {
    if (changed_) return;
    changed_ = true;
    if (observer_ != nullptr) observer_->GridChanged();
  }
  GridObserver* Observer() const { return observer_; }

 private:
  [[noreturn]] static void RaiseOutOfRange();

  std::vector<std::vector<CellValue>> columns_;
  TextTable texts_;  // number 0 is the empty text
  std::vector<int> colWidths_;
  TextMeasurer measurer_;
  GridObserver* observer_ = nullptr;
  bool changed_ = false;
};

}  // namespace tallyrun
