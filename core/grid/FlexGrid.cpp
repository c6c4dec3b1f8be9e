#include "core/grid/FlexGrid.h"

#include <algorithm>

#include "core/RuntimeError.h"

namespace tallyrun {

void FlexGrid::SetRows(int rows) {
  if (rows < 1) throw RuntimeError(ErrorKind::InvalidCall);
  const bool shrinks = rows < Rows();
  ResizeRows(rows);
  DrawInside(topRow_);
  if (shrinks) ForgetUnusedTexts();
}

void FlexGrid::SetCols(int cols) {
  if (cols < 1) throw RuntimeError(ErrorKind::InvalidCall);
  ResizeCols(cols);
  DrawInside(topRow_);
  ForgetUnusedTexts();
}

void FlexGrid::RemoveRows(int first, int last) {
  RequireInside(first, 0);
  RequireInside(last, 0);
  if (first < 1 || last < first) throw RuntimeError(ErrorKind::InvalidCall);
  EraseRows(first, last);
  const int removed = last - first + 1;
  int top = topRow_;
  for (int* const row : {&row_, &rowSel_, &top}) {
    if (*row > last) {
      *row -= removed;
    } else if (*row > first) {
      *row = first;
    }
  }
  DrawInside(top);
  ForgetUnusedTexts();
}

void FlexGrid::SetRow(int row) {
  RequireInside(row, 0);
  row_ = rowSel_ = row;
  colSel_ = col_;
  MarkChanged();
}

void FlexGrid::SetCol(int col) {
  RequireInside(0, col);
  col_ = colSel_ = col;
  rowSel_ = row_;
  MarkChanged();
}

void FlexGrid::SetRowSel(int row) {
  RequireInside(row, 0);
  rowSel_ = row;
  MarkChanged();
}

void FlexGrid::SetColSel(int col) {
  RequireInside(0, col);
  colSel_ = col;
  MarkChanged();
}

void FlexGrid::SelectRow(int row) {
  SetRow(row);
  SetCol(0);
  SetColSel(Cols() - 1);
}

void FlexGrid::SetTopRow(int row) {
  ScrollTo(topRow_, std::clamp(row, 1, std::max(1, Rows() - pageRows_)));
}

void FlexGrid::SetLeftCol(int col) { ScrollTo(leftCol_, std::clamp(col, 0, Cols() - 1)); }

void FlexGrid::ScrollTo(int& place, int to) {
  if (place == to) return;
  place = to;
  MarkChanged();
  if (Observer() != nullptr) Observer()->GridScrolled();
}

void FlexGrid::SetPageRows(int rows) {
  if (std::max(1, rows) == pageRows_) return;
  pageRows_ = std::max(1, rows);
  SetTopRow(topRow_);
  MarkChanged();
}

void FlexGrid::DrawInside(int topRow) {
  // While there is a data row, the captions are no place for the current cell.
  const int firstRow = Rows() > 1 ? 1 : 0;
  row_ = std::clamp(row_, firstRow, Rows() - 1);
  rowSel_ = std::clamp(rowSel_, firstRow, Rows() - 1);
  col_ = std::min(col_, Cols() - 1);
  colSel_ = std::min(colSel_, Cols() - 1);
  MarkChanged();
  SetTopRow(topRow);
  SetLeftCol(leftCol_);
}

}  // namespace tallyrun
