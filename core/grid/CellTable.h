// The cells of a grid, column after column: a pass over a large sheet looks at a few of its
// columns, so what it reads lies side by side, and rows are put into a new order a column at a
// time, each being small enough for the processor's caches. Knows nothing of texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace tallyrun {

// A cell's content: the number of a text in the grid's pool or, with the top bit set, a plain
// decimal number itself. Equal texts have equal values within one grid. Valid until rows
// are next taken from the grid or its columns are changed.
enum class CellValue : std::uint32_t { Empty = 0 };

// The cells of one row by column, for a pass that handles many of them.
template <class Cell>
class CellsOfRow {
 public:
  CellsOfRow(Cell* first, std::size_t stride) : first_(first), stride_(stride) {}
  Cell& operator[](std::size_t col) const { return first_[col * stride_]; }

 private:
  Cell* first_;
  std::size_t stride_;  // cells from one column to the next
};

// Rows and columns count from 0 and are not checked.
class CellTable {
 public:
  // New cells are empty. Rows that go leave their room to those that come: a sheet that was large
  // once will be again. Raises what a failed allocation raises, and leaves all as it was.
  void SetRows(std::size_t rows);
  void SetCols(std::size_t cols);
  // Room for as many rows, so that growing to them moves nothing.
  void ReserveRows(std::size_t rows);
  // Takes out rows `first` to `last`; those below move up.
  void RemoveRows(std::size_t first, std::size_t last);
  // Puts the rows behind row 0 into a new order: row 1 + i becomes what row order[i] was. `order`
  // holds each of them once.
  void ReorderRows(std::span<const std::uint32_t> order);

  std::size_t Rows() const { return rows_; }
  std::size_t Cols() const { return cols_; }
  std::size_t Size() const { return rows_ * cols_; }

  CellValue& At(std::size_t row, std::size_t col) { return cells_[col * stride_ + row]; }
  CellValue At(std::size_t row, std::size_t col) const { return cells_[col * stride_ + row]; }
  CellsOfRow<CellValue> Row(std::size_t row) { return {cells_.get() + row, stride_}; }
  CellsOfRow<const CellValue> Row(std::size_t row) const { return {cells_.get() + row, stride_}; }
  std::span<CellValue> Column(std::size_t col) { return {cells_.get() + col * stride_, rows_}; }
  std::span<const CellValue> Column(std::size_t col) const {
    return {cells_.get() + col * stride_, rows_};
  }

 private:
  void MoveTo(std::size_t stride, std::size_t cols);

  std::size_t rows_ = 0;
  std::size_t cols_ = 0;
  std::size_t stride_ = 0;  // cells that a column has room for
  std::unique_ptr<CellValue[]> cells_;
};

}  // namespace tallyrun
