#include "core/grid/CellTable.h"

#include <algorithm>
#include <atomic>
#include <cstring>

#include "core/TwoThreads.h"

namespace tallyrun {
namespace {

constexpr std::size_t kCellsOfLine = 64 / sizeof(CellValue);  // of a processor's cache
constexpr std::size_t kCellsOfPage = 4096 / sizeof(CellValue);

// At least `rows`, and so that the cells of one row don't all fall into the same place of the
// nearest cache: columns begin an odd number of lines apart.
std::size_t StrideFor(std::size_t rows) {
  if (rows < kCellsOfPage) return rows;
  const std::size_t lines = (rows + kCellsOfLine - 1) / kCellsOfLine;
  return (lines | 1) * kCellsOfLine;
}

bool AreAllEqual(std::span<const CellValue> cells) {
  return std::all_of(cells.begin(), cells.end(),
                     [first = cells.front()](CellValue cell) { return cell == first; });
}

}  // namespace

void CellTable::MoveTo(std::size_t stride, std::size_t cols) {
  auto moved = std::make_unique_for_overwrite<CellValue[]>(stride * cols);
  for (std::size_t col = 0; col < cols; ++col) {
    CellValue* const column = moved.get() + col * stride;
    const std::size_t kept = col < cols_ ? rows_ : 0;
    if (kept != 0) std::copy_n(Column(col).begin(), kept, column);
    std::fill(column + kept, column + rows_, CellValue::Empty);
  }
  cells_ = std::move(moved);
  stride_ = stride;
  cols_ = cols;
}

void CellTable::SetRows(std::size_t rows) {
  if (rows > stride_) ReserveRows(std::max(rows, stride_ + stride_ / 2));
  for (std::size_t col = 0; rows > rows_ && col < cols_; ++col) {
    CellValue* const column = cells_.get() + col * stride_;
    std::fill(column + rows_, column + rows, CellValue::Empty);
  }
  rows_ = rows;
}

void CellTable::SetCols(std::size_t cols) {
  if (cols != cols_) MoveTo(stride_, cols);
}

void CellTable::ReserveRows(std::size_t rows) {
  if (rows > stride_) MoveTo(StrideFor(rows), cols_);
}

void CellTable::RemoveRows(std::size_t first, std::size_t last) {
  for (std::size_t col = 0; col < cols_; ++col) {
    const std::span<CellValue> column = Column(col);
    std::copy(column.begin() + static_cast<std::ptrdiff_t>(last) + 1, column.end(),
              column.begin() + static_cast<std::ptrdiff_t>(first));
  }
  rows_ -= last - first + 1;
}

void CellTable::ReorderRows(std::span<const std::uint32_t> order) {
  if (order.empty()) return;
  // Made before anything moves: a sheet must not be left with some of its columns reordered.
  constexpr std::size_t kThreads = 2;
  const auto buffers = std::make_unique_for_overwrite<CellValue[]>(kThreads * order.size());
  std::atomic<std::size_t> next = 0;
  ForEachPiece(kThreads, order.size(), [&](std::size_t thread) {
    const std::span reordered(buffers.get() + thread * order.size(), order.size());
    for (std::size_t col; (col = next++) < cols_;) {
      const std::span<CellValue> column = Column(col);
      if (AreAllEqual(column.subspan(1))) continue;
      for (std::size_t at = 0; at < order.size(); ++at) reordered[at] = column[order[at]];
      std::copy(reordered.begin(), reordered.end(), column.begin() + 1);
    }
  });
}

}  // namespace tallyrun
