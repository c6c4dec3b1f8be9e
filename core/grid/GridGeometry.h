// Where a grid's cells lie in its window, and what the arrow keys and the wheel mean in it. All
// pixels are the view's client pixels. Works from the grid's data and a few sizes; knows no window.
#pragma once

#include <optional>

#include "core/grid/FlexGrid.h"

namespace tallyrun {

// A grid's cell by row and column, or a count of rows and columns.
struct GridCell {
  int row = 0;
  int col = 0;
  friend bool operator==(const GridCell&, const GridCell&) = default;
};

// Cells from one corner to the other, both included.
struct GridBlock {
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;
  bool Contains(int row, int col) const {
    return row >= top && row <= bottom && col >= left && col <= right;
  }
};

// The selected block, its corners in order.
GridBlock SelectedBlock(const FlexGrid& grid);

// Pixels; the right and bottom edges are left + width and top + height.
struct GridRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const GridRect&, const GridRect&) = default;
};

// What the view knows in pixels. The header lies over the rows and never scrolls vertically.
struct GridSizes {
  int clientWidth = 0;
  int clientHeight = 0;
  int dpi = 96;
  int rowHeight = 20;
  int headerHeight = 20;
};

// A look at a grid at one moment: cheap to make, good until the grid or the window changes.
class GridGeometry {
 public:
  GridGeometry(const FlexGrid& grid, const GridSizes& sizes) : grid_(&grid), sizes_(sizes) {}

  int ColPixels(int col) const;
  // The column's left edge; negative where it is scrolled out. `col` may be one past the last.
  int ColLeft(int col) const;
  int RowTop(int row) const;
  // The cell's whole rectangle, its right and bottom border lines included.
  GridRect CellBounds(int row, int col) const;

  // Whole rows that fit below the header; at least 1.
  int PageRows() const;
  // Rows and columns of which something is seen. Empty when `last` lies before `first`.
  struct Range {
    int first;
    int last;
  };
  Range VisibleRows() const;
  Range VisibleCols() const;

  // The data cell under a point; none over the header, beside or below the cells.
  std::optional<GridCell> CellAt(int x, int y) const;
  // The data cell nearest to a point, which may lie anywhere: beyond an edge it is the first cell
  // out of sight there. None when there is no data row.
  std::optional<GridCell> CellNearest(int x, int y) const;

  // How far the left column can scroll: the last columns still fill the window.
  int MaxLeftCol() const;

  // Calls visit(row, col, rectangle) for every data cell that touches `area`, row after row.
  template <class Visit>
  void ForEachCell(const GridRect& area, Visit&& visit) const {
    const Range rows = RowsTouching(area.top, area.top + area.height);
    const Range cols = ColsTouching(area.left, area.left + area.width);
    for (int row = rows.first; row <= rows.last; ++row) {
      GridRect cell{ColLeft(cols.first), RowTop(row), 0, sizes_.rowHeight};
      for (int col = cols.first; col <= cols.last; ++col) {
        cell.width = ColPixels(col);
        visit(row, col, cell);
        cell.left += cell.width;
      }
    }
  }

 private:
  Range RowsTouching(int top, int bottom) const;
  Range ColsTouching(int left, int right) const;

  const FlexGrid* grid_;
  GridSizes sizes_;
};

// What a key asks of the current cell.
enum class CaretMove {
  Left,
  Right,
  Up,
  Down,
  PageUp,
  PageDown,
  RowStart,
  RowEnd,
  SheetStart,
  SheetEnd,
};

// Moves the current cell or, with `extend`, the selection's other corner, and scrolls it into
// view. Does nothing without a data row.
void MoveCaret(FlexGrid& grid, const GridSizes& sizes, CaretMove move, bool extend);

// Scrolls as little as shows the cell whole (a column wider than the window: its beginning).
void MakeVisible(FlexGrid& grid, const GridSizes& sizes, GridCell cell);

// Turns wheel messages into whole steps and keeps what is left for the next one.
class WheelSteps {
 public:
  // `delta` is the message's (120 a notch), `stepsPerNotch` the user's setting.
  int Take(int delta, int stepsPerNotch);

 private:
  int remainder_ = 0;
};

}  // namespace tallyrun
