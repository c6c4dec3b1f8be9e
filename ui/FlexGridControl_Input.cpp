// The grid's window procedure, and what keys, mouse, wheel and scroll bars do.
#include <windows.h>

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <climits>
#include <optional>

#include "ui/FlexGridControl.h"

namespace tallyrun {
namespace {

constexpr UINT_PTR kDragTimer = 1;
constexpr UINT kDragInterval = 50;  // milliseconds between rows while dragging past an edge

std::optional<CaretMove> MoveOf(const KeyEvent& key) {
  constexpr struct {
    int key;
    CaretMove move, withControl;
  } kMoves[] = {
      {VK_LEFT, CaretMove::Left, CaretMove::Left},
      {VK_RIGHT, CaretMove::Right, CaretMove::Right},
      {VK_UP, CaretMove::Up, CaretMove::Up},
      {VK_DOWN, CaretMove::Down, CaretMove::Down},
      {VK_PRIOR, CaretMove::PageUp, CaretMove::PageUp},
      {VK_NEXT, CaretMove::PageDown, CaretMove::PageDown},
      {VK_HOME, CaretMove::RowStart, CaretMove::SheetStart},
      {VK_END, CaretMove::RowEnd, CaretMove::SheetEnd},
  };
  for (const auto& each : kMoves) {
    if (each.key == key.key) return key.control ? each.withControl : each.move;
  }
  return std::nullopt;
}

// Where a request of the scroll bar leads; the owner clamps it. Positions are the scroll bar's.
int ScrolledTo(HWND window, int bar, int request, int position, int page) {
  switch (request) {
    case SB_LINEUP:
      return position - 1;
    case SB_LINEDOWN:
      return position + 1;
    case SB_PAGEUP:
      return position - page;
    case SB_PAGEDOWN:
      return position + page;
    case SB_TOP:
      return 0;
    case SB_BOTTOM:
      return INT_MAX / 2;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: {
      // The message itself carries 16 bits only.
      SCROLLINFO info = {};
      info.cbSize = sizeof info;
      info.fMask = SIF_TRACKPOS;
      GetScrollInfo(window, bar, &info);
      return info.nTrackPos;
    }
    default:
      return position;
  }
}

POINT PointOf(LPARAM lParam) { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }

}  // namespace

LRESULT FlexGridControl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      OnPaint();
      return 0;
    case WM_PRINTCLIENT: {
      FollowGrid();
      RECT client = {};
      GetClientRect(Handle(), &client);
      Paint(reinterpret_cast<HDC>(wParam), client);
      return 0;
    }
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      OnSize();
      return 0;
    case WM_ENABLE:
      EnableWindow(header_.Handle(), wParam != 0);
      Invalidate();
      return 0;
    case WM_SYSCOLORCHANGE:
      SendMessageA(header_.Handle(), message, wParam, lParam);
      Invalidate();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      Invalidate();
      return Control::OnMessage(message, wParam, lParam);
    case WM_KEYDOWN:
      return OnKeyDown(wParam, lParam);
    case WM_GETDLGCODE:
      return DialogCode(lParam);
    case WM_LBUTTONDOWN:
      OnLeftDown(PointOf(lParam), (wParam & MK_SHIFT) != 0);
      return 0;
    case WM_LBUTTONDBLCLK:
      OnDoubleClick(PointOf(lParam));
      return 0;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
      OnRightDown(PointOf(lParam));
      return 0;
    case WM_LBUTTONUP:
      if (dragging_) ReleaseCapture();
      return 0;
    case WM_RBUTTONUP:
      RightClick.Raise(PointOf(lParam));
      return 0;
    case WM_CONTEXTMENU:
      // Without a place it comes from the keyboard; the mouse's belongs to a scroll bar.
      if (PointOf(lParam).x != -1 || PointOf(lParam).y != -1) break;
      OnMenuKey();
      return 0;
    case WM_MOUSEMOVE:
      if (dragging_) DragTo(PointOf(lParam));
      return 0;
    case WM_TIMER:
      if (wParam == kDragTimer && dragging_) {
        POINT at = {};
        GetCursorPos(&at);
        ScreenToClient(Handle(), &at);
        DragTo(at);
      }
      return 0;
    case WM_CAPTURECHANGED:
      EndDrag();
      return 0;
    case WM_VSCROLL:
      OnVerticalScroll(LOWORD(wParam));
      return 0;
    case WM_HSCROLL:
      OnHorizontalScroll(LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL:
      OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
      return 0;
    case WM_MOUSEHWHEEL:
      OnHorizontalWheel(GET_WHEEL_DELTA_WPARAM(wParam));
      return 0;
    case WM_NOTIFY:
      return OnHeader(*reinterpret_cast<const NMHDR*>(lParam), lParam);
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(std::string_view(CurrentText()).size());
    case WM_GETTEXT:
      return CopyText(wParam, reinterpret_cast<char*>(lParam));
    case WM_SETTEXT:
      return FALSE;  // its text is the current cell's
    case WM_DESTROY:
      grid_.SetObserver(nullptr);
      header_.Forget();
      return 0;
    default:
      break;
  }
  return Control::OnMessage(message, wParam, lParam);
}

LRESULT FlexGridControl::OnKeyDown(WPARAM wParam, LPARAM lParam) {
  KeyEvent key = KeyEventFrom(wParam, lParam);
  KeyDown.Raise(key);
  if (key.handled || Handle() == nullptr || MoveByKey(key)) return 0;
  return Default(WM_KEYDOWN, wParam, lParam);
}

bool FlexGridControl::MoveByKey(const KeyEvent& key) {
  const std::optional<CaretMove> move = MoveOf(key);
  if (!move) return false;
  MoveCaret(grid_, Sizes(), *move, key.shift);
  return true;
}

// Tab alone is left to the dialog keyboard. Enter has to be asked for by name.
LRESULT FlexGridControl::DialogCode(LPARAM lParam) const {
  LRESULT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
  const auto* const message = reinterpret_cast<const MSG*>(lParam);
  if (message != nullptr && message->wParam == VK_RETURN) code |= DLGC_WANTMESSAGE;
  return code;
}

void FlexGridControl::OnLeftDown(POINT at, bool extend) {
  SetFocus();
  const std::optional<GridCell> cell = Geometry().CellAt(at.x, at.y);
  if (!cell) return;
  if (!extend) {
    grid_.SetRow(cell->row);
    grid_.SetCol(cell->col);
  }
  grid_.SetRowSel(cell->row);
  grid_.SetColSel(cell->col);
  // A cell seen in part stays where it is, or a second click would hit another one.
  dragging_ = true;
  SetCapture(Handle());
  SetTimer(Handle(), kDragTimer, kDragInterval, nullptr);
}

void FlexGridControl::OnDoubleClick(POINT at) {
  SetFocus();
  const std::optional<GridCell> cell = Geometry().CellAt(at.x, at.y);
  if (!cell) return;
  grid_.SetRow(cell->row);
  grid_.SetCol(cell->col);
  DblClick.Raise();
}

void FlexGridControl::OnRightDown(POINT at) {
  SetFocus();
  const std::optional<GridCell> cell = Geometry().CellAt(at.x, at.y);
  if (!cell || SelectedBlock(grid_).Contains(cell->row, cell->col)) return;
  grid_.SetRow(cell->row);
  grid_.SetCol(cell->col);
}

void FlexGridControl::OnMenuKey() {
  if (grid_.Row() > 0) ShowCell(grid_.Row(), grid_.Col());
  const GridRect cell = CellBounds(grid_.Row(), grid_.Col());
  RightClick.Raise({cell.left + cell.width / 2, cell.top + cell.height / 2});
}

void FlexGridControl::DragTo(POINT at) {
  const GridSizes sizes = Sizes();
  const std::optional<GridCell> cell = GridGeometry(grid_, sizes).CellNearest(at.x, at.y);
  if (!cell || (cell->row == grid_.RowSel() && cell->col == grid_.ColSel())) return;
  grid_.SetRowSel(cell->row);
  grid_.SetColSel(cell->col);
  // Only past an edge does dragging scroll.
  const bool isBeside = at.x < 0 || at.x >= sizes.clientWidth;
  const bool isAboveOrBelow = at.y < sizes.headerHeight || at.y >= sizes.clientHeight;
  MakeVisible(
      grid_, sizes,
      {isAboveOrBelow ? cell->row : grid_.TopRow(), isBeside ? cell->col : grid_.LeftCol()});
}

void FlexGridControl::EndDrag() {
  if (!dragging_) return;
  dragging_ = false;
  KillTimer(Handle(), kDragTimer);
}

void FlexGridControl::OnVerticalScroll(int request) {
  grid_.SetTopRow(1 + ScrolledTo(Handle(), SB_VERT, request, grid_.TopRow() - 1, grid_.PageRows()));
}

void FlexGridControl::OnHorizontalScroll(int request) {
  const int page = std::max(1, Geometry().VisibleCols().last - grid_.LeftCol());
  ScrollToCol(ScrolledTo(Handle(), SB_HORZ, request, grid_.LeftCol(), page));
}

void FlexGridControl::OnWheel(int delta) {
  UINT lines = 3;
  SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  // A notch moves a page at most, also where it is set to move just that.
  const UINT page = static_cast<UINT>(grid_.PageRows());
  grid_.SetTopRow(grid_.TopRow() - wheel_.Take(delta, static_cast<int>(std::min(lines, page))));
}

void FlexGridControl::OnHorizontalWheel(int delta) {
  ScrollToCol(grid_.LeftCol() + horizontalWheel_.Take(delta, 1));
}

}  // namespace tallyrun
