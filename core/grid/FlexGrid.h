// A grid's data: its cells, and the cursor over them, which is the current cell, the selected block
// and the scroll position. Knows no window.
#pragma once

#include "core/grid/GridCells.h"

namespace tallyrun {

class FlexGrid : public GridCells {
 public:
  // New cells are empty; the current cell and the selection are drawn back inside. At least the
  // caption row and one column stay: less raises InvalidCall.
  void SetRows(int rows);
  void SetCols(int cols);
  // Takes out data rows `first` to `last`. What stood on a later row moves up with it; what stood
  // on a removed one comes to stand on the row that took its place.
  void RemoveRows(int first, int last);

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

 private:
  void DrawInside(int topRow);
  // Scrolls and tells the observer, if the place is a new one.
  void ScrollTo(int& place, int to);

  int row_ = 0;
  int col_ = 0;
  int rowSel_ = 0;
  int colSel_ = 0;
  int topRow_ = 1;
  int leftCol_ = 0;
  int pageRows_ = 1;
};

}  // namespace tallyrun
