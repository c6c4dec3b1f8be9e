// The window on a FlexGrid: paints the rows in sight, scrolls, and turns keys and mouse into
// moves of the current cell and the selected block. Holds no copy of the data and knows nothing
// of its meaning. The captions stand in a native header control.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "core/grid/FlexGrid.h"
#include "core/grid/GridGeometry.h"
#include "ui/Control.h"
#include "ui/GridHeader.h"
#include "ui/GridPainter.h"

namespace tallyrun {

class FlexGridControl : public Control, private GridObserver {
 public:
  FlexGridControl() = default;
  ~FlexGridControl() override;

  // A double click on a cell, which is the current one by then.
  Event<> DblClick;
  // The right button was released over rows or captions, or the menu key pressed: where, in client
  // pixels. A right click on a cell outside the selected block makes that cell current first.
  Event<POINT> RightClick;
  // The first visible row or column has changed, whoever changed it; raised at once.
  Event<> Scroll;

  void Create(ControlParent& parent, int id);

  // The data; it outlives the window.
  FlexGrid& Grid() { return grid_; }
  const FlexGrid& Grid() const { return grid_; }

  // The cell's rectangle in the control's client pixels, also where it is out of sight.
  GridRect CellBounds(int row, int col) const;
  // What can be seen of the cell, in pixels of the control's parent: where an editor goes.
  PixelRect CellBoundsInParent(int row, int col) const;
  // Scrolls as little as shows the cell whole.
  void ShowCell(int row, int col);

  // Paints at once what has changed, without waiting for the message loop.
  void Redraw();

  void ApplyFont(HFONT font) override;

 protected:
  void OnShowing() override { FollowGrid(); }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void GridChanged() override;
  void GridScrolled() override;

  GridSizes Sizes() const;
  GridGeometry Geometry() const { return GridGeometry(grid_, Sizes()); }

  void OnSize();
  void OnPaint();
  void Paint(HDC dc, const RECT& dirty);
  void AnnounceCurrentCell();
  LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
  bool MoveByKey(const KeyEvent& key);
  LRESULT DialogCode(LPARAM lParam) const;

  void OnLeftDown(POINT at, bool extend);
  void OnDoubleClick(POINT at);
  void OnRightDown(POINT at);
  void OnMenuKey();
  void DragTo(POINT at);
  void EndDrag();

  void OnVerticalScroll(int request);
  void OnHorizontalScroll(int request);
  void OnWheel(int delta);
  void OnHorizontalWheel(int delta);
  void ScrollToCol(int col);
  void FillWidth();

  LRESULT OnHeader(const NMHDR& notification, LPARAM lParam);
  void FitColumn(int col);

  LRESULT CopyText(WPARAM size, char* buffer) const;
  CellText CurrentText() const;

  void FollowGrid();
  void ShowScrollRange(int bar, int last, int page, int position);
  void Invalidate();

  FlexGrid grid_;
  GridHeader header_;
  GridLook look_;
  int rowHeight_ = 1;
  WheelSteps wheel_;
  WheelSteps horizontalWheel_;
  GridCell announced_;
  bool dragging_ = false;
};

}  // namespace tallyrun
