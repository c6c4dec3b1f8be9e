#include "ui/GridHeader.h"

#include <commctrl.h>
#include <windowsx.h>

#include "core/RuntimeError.h"
#include "ui/BufferedPaint.h"
#include "ui/Handles.h"

namespace tallyrun {

// Draws like the rows below: into a back buffer, so that nothing flickers while a column is
// dragged. A press gives the grid the focus, and the right button is the grid's own.
LRESULT CALLBACK GridHeader::WindowProc(HWND window, UINT message, WPARAM wParam,
                                        LPARAM lParam) noexcept {
  const auto* const self =
      reinterpret_cast<const GridHeader*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  const HWND grid = GetParent(window);
  switch (message) {
    case WM_PAINT: {
      const PaintScope paint(window);
      const BufferedPaint buffer(paint.Dc(), paint.Dirty());
      return self->classProc_.Call(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(buffer.Dc()),
                                   PRF_CLIENT | PRF_ERASEBKGND);
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
      SetFocus(grid);
      break;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_RBUTTONUP: {
      POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
      MapWindowPoints(window, grid, &at, 1);
      return SendMessageA(grid, message, wParam, MAKELPARAM(at.x, at.y));
    }
    default:
      break;
  }
  return self->classProc_.Call(window, message, wParam, lParam);
}

void GridHeader::Create(HWND grid) {
  window_ = CreateWindowExA(0, WC_HEADERA, "", WS_CHILD | WS_VISIBLE | HDS_HORZ | HDS_FULLDRAG, 0,
                            0, 0, 0, grid, nullptr, GetModuleHandleA(nullptr), nullptr);
  if (window_ == nullptr) throw RuntimeError(ErrorKind::OutOfMemory);
  SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  classProc_.Precede(window_, &WindowProc);
}

void GridHeader::Forget() {
  window_ = nullptr;
  items_.clear();
  place_ = {};
}

void GridHeader::ApplyFont(HFONT font) {
  SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  RECT room = {0, 0, 1000, 1000};
  WINDOWPOS position = {};
  HDLAYOUT layout = {&room, &position};
  SendMessageA(window_, HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layout));
  height_ = position.cy;
}

void GridHeader::Follow(const FlexGrid& grid, const GridGeometry& geometry, int width) {
  following_ = true;
  const auto cols = static_cast<std::size_t>(grid.Cols());
  while (items_.size() > cols) {
    items_.pop_back();
    SendMessageA(window_, HDM_DELETEITEM, items_.size(), 0);
  }
  for (std::size_t index = 0; index < cols; ++index) {
    const int col = static_cast<int>(index);
    Item item{grid.Text(0, col), geometry.ColPixels(col)};
    if (index < items_.size() && items_[index] == item) continue;
    HDITEMA shown = {};
    shown.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT;
    shown.pszText = item.caption.data();
    shown.cxy = item.width;
    shown.fmt = HDF_LEFT | HDF_STRING;
    const bool isNew = index == items_.size();
    SendMessageA(window_, isNew ? HDM_INSERTITEMA : HDM_SETITEMA, index,
                 reinterpret_cast<LPARAM>(&shown));
    if (isNew) items_.emplace_back();
    items_[index] = std::move(item);
  }
  // What is scrolled out at the left lies outside the grid's window.
  const int scrolledOut = -geometry.ColLeft(0);
  const GridRect place{-scrolledOut, 0, scrolledOut + width, height_};
  if (place != place_) {
    SetWindowPos(window_, HWND_TOP, place.left, place.top, place.width, place.height,
                 SWP_NOACTIVATE);
    place_ = place;
  }
  following_ = false;
}

}  // namespace tallyrun
