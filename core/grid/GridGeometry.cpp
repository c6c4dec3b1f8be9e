#include "core/grid/GridGeometry.h"

#include <algorithm>
#include <cstdint>

#include "core/grid/TextMeasurer.h"

namespace tallyrun {
namespace {

constexpr int kNotch = 120;  // what one notch of the wheel reports

// Far enough outside any window, and near enough that sums of two still fit an int.
int ToPixel(std::int64_t position) {
  constexpr std::int64_t kFar = 500'000'000;
  return static_cast<int>(std::clamp(position, -kFar, kFar));
}

GridCell Moved(const FlexGrid& grid, GridCell from, CaretMove move) {
  switch (move) {
    case CaretMove::Left:
      --from.col;
      break;
    case CaretMove::Right:
      ++from.col;
      break;
    case CaretMove::Up:
      --from.row;
      break;
    case CaretMove::Down:
      ++from.row;
      break;
    case CaretMove::PageUp:
      from.row -= grid.PageRows();
      break;
    case CaretMove::PageDown:
      from.row += std::min(grid.PageRows(), grid.Rows() - 1 - from.row);
      break;
    case CaretMove::RowStart:
      from.col = 0;
      break;
    case CaretMove::RowEnd:
      from.col = grid.Cols() - 1;
      break;
    case CaretMove::SheetStart:
      from = {1, 0};
      break;
    case CaretMove::SheetEnd:
      from = {grid.Rows() - 1, grid.Cols() - 1};
      break;
  }
  return {std::clamp(from.row, 1, grid.Rows() - 1), std::clamp(from.col, 0, grid.Cols() - 1)};
}

}  // namespace

GridBlock SelectedBlock(const FlexGrid& grid) {
  return {std::min(grid.Row(), grid.RowSel()), std::min(grid.Col(), grid.ColSel()),
          std::max(grid.Row(), grid.RowSel()), std::max(grid.Col(), grid.ColSel())};
}

int GridGeometry::ColPixels(int col) const {
  return TwipsToPixels(grid_->ColWidth(col), sizes_.dpi);
}

int GridGeometry::ColLeft(int col) const {
  std::int64_t left = 0;
  for (int before = grid_->LeftCol(); before < col; ++before) left += ColPixels(before);
  for (int after = col; after < grid_->LeftCol(); ++after) left -= ColPixels(after);
  return ToPixel(left);
}

int GridGeometry::RowTop(int row) const {
  return ToPixel(sizes_.headerHeight +
                 (static_cast<std::int64_t>(row) - grid_->TopRow()) * sizes_.rowHeight);
}

GridRect GridGeometry::CellBounds(int row, int col) const {
  return {ColLeft(col), RowTop(row), ColPixels(col), sizes_.rowHeight};
}

int GridGeometry::PageRows() const {
  return std::max(1, (sizes_.clientHeight - sizes_.headerHeight) / sizes_.rowHeight);
}

GridGeometry::Range GridGeometry::RowsTouching(int top, int bottom) const {
  top = std::max(top, sizes_.headerHeight);
  bottom = std::min(bottom, sizes_.clientHeight);
  const int first = grid_->TopRow();
  if (bottom <= top) return {first, first - 1};
  const int above = (top - sizes_.headerHeight) / sizes_.rowHeight;
  const int below = (bottom - 1 - sizes_.headerHeight) / sizes_.rowHeight;
  const int rest = grid_->Rows() - 1 - first;  // so that no sum passes the last row
  return {first + std::min(above, rest + 1), first + std::min(below, rest)};
}

GridGeometry::Range GridGeometry::ColsTouching(int left, int right) const {
  left = std::max(left, 0);
  right = std::min(right, sizes_.clientWidth);
  int first = grid_->LeftCol();
  if (right <= left) return {first, first - 1};
  std::int64_t edge = 0;
  while (first < grid_->Cols() && edge + ColPixels(first) <= left) edge += ColPixels(first++);
  int last = first - 1;
  while (last + 1 < grid_->Cols() && edge < right) edge += ColPixels(++last);
  return {first, last};
}

GridGeometry::Range GridGeometry::VisibleRows() const {
  return RowsTouching(0, sizes_.clientHeight);
}

GridGeometry::Range GridGeometry::VisibleCols() const {
  return ColsTouching(0, sizes_.clientWidth);
}

std::optional<GridCell> GridGeometry::CellAt(int x, int y) const {
  const Range rows = RowsTouching(y, y + 1);
  const Range cols = ColsTouching(x, x + 1);
  if (rows.last < rows.first || cols.last < cols.first) return std::nullopt;
  return GridCell{rows.first, cols.first};
}

std::optional<GridCell> GridGeometry::CellNearest(int x, int y) const {
  if (grid_->Rows() < 2) return std::nullopt;
  const int lastRow = grid_->Rows() - 1;
  const int lastCol = grid_->Cols() - 1;
  GridCell cell;
  if (y < sizes_.headerHeight) {
    cell.row = std::max(1, grid_->TopRow() - 1);
  } else if (y >= sizes_.clientHeight) {
    cell.row = grid_->TopRow() + std::min(PageRows(), lastRow - grid_->TopRow());
  } else {
    const int below = (y - sizes_.headerHeight) / sizes_.rowHeight;
    cell.row = grid_->TopRow() + std::min(below, lastRow - grid_->TopRow());
  }
  if (x < 0) {
    cell.col = std::max(0, grid_->LeftCol() - 1);
  } else if (x >= sizes_.clientWidth) {
    cell.col = std::min(VisibleCols().last + 1, lastCol);
  } else {
    const Range cols = ColsTouching(x, x + 1);
    cell.col = cols.last < cols.first ? lastCol : cols.first;
  }
  return cell;
}

int GridGeometry::MaxLeftCol() const {
  int col = grid_->Cols() - 1;
  std::int64_t width = ColPixels(col);
  while (col > 0 && width + ColPixels(col - 1) <= sizes_.clientWidth) width += ColPixels(--col);
  return col;
}

void MoveCaret(FlexGrid& grid, const GridSizes& sizes, CaretMove move, bool extend) {
  if (grid.Rows() < 2) return;
  if (extend) {
    const GridCell corner = Moved(grid, {grid.RowSel(), grid.ColSel()}, move);
    grid.SetRowSel(corner.row);
    grid.SetColSel(corner.col);
    MakeVisible(grid, sizes, corner);
  } else {
    const GridCell current = Moved(grid, {grid.Row(), grid.Col()}, move);
    grid.SetRow(current.row);
    grid.SetCol(current.col);
    MakeVisible(grid, sizes, current);
  }
}

void MakeVisible(FlexGrid& grid, const GridSizes& sizes, GridCell cell) {
  if (cell.row < grid.TopRow()) {
    grid.SetTopRow(cell.row);
  } else if (!grid.IsRowVisible(cell.row)) {
    grid.SetTopRow(cell.row - grid.PageRows() + 1);
  }
  const GridGeometry geometry(grid, sizes);
  int left = grid.LeftCol();
  if (cell.col < left) {
    left = cell.col;
  } else {
    std::int64_t width = 0;
    for (int col = left; col <= cell.col; ++col) width += geometry.ColPixels(col);
    while (left < cell.col && width > sizes.clientWidth) width -= geometry.ColPixels(left++);
  }
  grid.SetLeftCol(left);
}

int WheelSteps::Take(int delta, int stepsPerNotch) {
  if ((delta < 0) != (remainder_ < 0)) remainder_ = 0;  // turned round: the rest is stale
  remainder_ += delta * stepsPerNotch;
  const int steps = remainder_ / kNotch;
  remainder_ -= steps * kNotch;
  return steps;
}

}  // namespace tallyrun
