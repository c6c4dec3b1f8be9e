#include "ui/FlexGridControl.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <optional>

#include "core/grid/ColumnWidths.h"
#include "core/grid/TextMeasurer.h"
#include "ui/BufferedPaint.h"
#include "ui/Form.h"

namespace tallyrun {
namespace {

constexpr char kWindowClass[] = "TallyrunGrid";
// Sizes in pixels at 96 DPI.
constexpr int kTextMargin = 6;  // as in the header
constexpr int kRowSpace = 6;    // above and below a line of text, together

// Where the thumb of a bar of so many pixels stands, in steps of less than a pixel. A page of a
// million rows moves it by none, and drawing a themed bar takes longer than drawing the rows.
int ThumbStep(const SCROLLINFO& bar, int pixels) {
  constexpr int kStepsOfPixel = 4;
  const int last = bar.nMax + 1 - static_cast<int>(bar.nPage);
  return MulDiv(pixels * kStepsOfPixel, bar.nPos, std::max(1, last));
}

}  // namespace

FlexGridControl::~FlexGridControl() { grid_.SetObserver(nullptr); }

void FlexGridControl::Create(ControlParent& parent, int id) {
  RegisterWindowClass(kWindowClass, DefWindowProcA, CS_DBLCLKS);
  CreateControl(parent, id, kWindowClass, "", WS_TABSTOP | WS_BORDER | WS_CLIPCHILDREN);
  header_.Create(Handle());
  grid_.SetObserver(this);
}

void FlexGridControl::ApplyFont(HFONT font) {
  if (Handle() == nullptr) return;
  const int dpi = Owner()->Dpi();
  look_.font = font;
  look_.lineHeight = LineHeightOf(font);
  look_.textMargin = ScaleForDpi(kTextMargin, dpi);
  rowHeight_ = look_.lineHeight + ScaleForDpi(kRowSpace, dpi);
  grid_.SetMeasurer(MeasurerFor(font, dpi));
  header_.ApplyFont(font);
  OnSize();
}

GridSizes FlexGridControl::Sizes() const {
  RECT client = {};
  GetClientRect(Handle(), &client);
  return {client.right, client.bottom, Owner()->Dpi(), rowHeight_, header_.Height()};
}

GridRect FlexGridControl::CellBounds(int row, int col) const {
  return Handle() == nullptr ? GridRect{} : Geometry().CellBounds(row, col);
}

PixelRect FlexGridControl::CellBoundsInParent(int row, int col) const {
  const GridRect cell = CellBounds(row, col);
  RECT client = {};
  GetClientRect(Handle(), &client);
  client.top = header_.Height();
  RECT seen = {cell.left, cell.top, cell.left + cell.width, cell.top + cell.height};
  if (IntersectRect(&seen, &seen, &client) == FALSE) return {};
  MapWindowPoints(Handle(), GetParent(Handle()), reinterpret_cast<POINT*>(&seen), 2);
  return {seen.left, seen.top, seen.right - seen.left, seen.bottom - seen.top};
}

void FlexGridControl::ShowCell(int row, int col) {
  if (Handle() != nullptr) MakeVisible(grid_, Sizes(), {row, col});
}

void FlexGridControl::Redraw() {
  if (Handle() == nullptr) return;  // which would stand for the whole screen
  RedrawWindow(Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FlexGridControl::GridChanged() { Invalidate(); }

void FlexGridControl::GridScrolled() {
  FollowGrid();
  Scroll.Raise();
}

void FlexGridControl::Invalidate() { InvalidateRect(Handle(), nullptr, FALSE); }

void FlexGridControl::OnSize() {
  grid_.SetPageRows(Geometry().PageRows());
  FillWidth();
  FollowGrid();
  Invalidate();
}

void FlexGridControl::OnPaint() {
  FollowGrid();
  UpdateWindow(header_.Handle());
  if (grid_.TakeChanges()) AnnounceCurrentCell();
  const PaintScope paint(Handle());
  const BufferedPaint buffer(paint.Dc(), paint.Dirty());
  Paint(buffer.Dc(), paint.Dirty());
}

// A screen reader takes the window's text, the current cell's, for its name.
void FlexGridControl::AnnounceCurrentCell() {
  const GridCell current{grid_.Row(), grid_.Col()};
  if (current == announced_) return;
  announced_ = current;
  if (HasFocus()) {
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
  }
}

void FlexGridControl::Paint(HDC dc, const RECT& dirty) {
  look_.focused = HasFocus();
  look_.enabled = Enabled();
  PaintGrid(dc, grid_, Geometry(), look_, dirty);
}

// Brings header and scroll bars up to the data. A bar shows while there is something to scroll to;
// one that comes or goes changes the size, and what follows from that is seen to at once.
void FlexGridControl::FollowGrid() {
  header_.Follow(grid_, Geometry(), Sizes().clientWidth);
  ShowScrollRange(SB_VERT, grid_.Rows() - 2, grid_.PageRows(), grid_.TopRow() - 1);
  const int seenCols = grid_.Cols() - Geometry().MaxLeftCol();
  ShowScrollRange(SB_HORZ, grid_.Cols() - 1, seenCols, grid_.LeftCol());
}

void FlexGridControl::ShowScrollRange(int bar, int last, int page, int position) {
  SCROLLINFO shown = {};
  shown.cbSize = sizeof shown;
  shown.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  GetScrollInfo(Handle(), bar, &shown);
  SCROLLINFO wanted = shown;
  wanted.nMin = 0;
  wanted.nMax = std::max(0, last);
  wanted.nPage = static_cast<UINT>(std::min(page, wanted.nMax + 1));  // as the system holds it
  wanted.nPos = position;
  if (wanted.nMax == shown.nMax && wanted.nPage == shown.nPage && wanted.nPos == shown.nPos) {
    return;
  }
  const bool isAsLong = wanted.nMax == shown.nMax && wanted.nPage == shown.nPage;
  const GridSizes sizes = Sizes();
  const int pixels = std::max(sizes.clientWidth, sizes.clientHeight);
  const bool isAsDrawn = isAsLong && ThumbStep(wanted, pixels) == ThumbStep(shown, pixels);
  SetScrollInfo(Handle(), bar, &wanted, isAsDrawn ? FALSE : TRUE);
}

LRESULT FlexGridControl::OnHeader(const NMHDR& notification, LPARAM lParam) {
  if (notification.hwndFrom != header_.Handle() || header_.IsFollowing()) return 0;
  const auto& change = *reinterpret_cast<const NMHEADERA*>(lParam);
  switch (notification.code) {
    case HDN_ITEMCHANGEDA:
    case HDN_ITEMCHANGEDW:
      if (change.pitem != nullptr && (change.pitem->mask & HDI_WIDTH) != 0) {
        grid_.SetColWidth(change.iItem, PixelsToTwips(change.pitem->cxy, Owner()->Dpi()));
      }
      return 0;
    case HDN_ENDTRACKA:
    case HDN_ENDTRACKW:
      FillWidth();
      return 0;
    case HDN_DIVIDERDBLCLICKA:
    case HDN_DIVIDERDBLCLICKW:
      FitColumn(change.iItem);
      return 0;
    default:
      return Default(WM_NOTIFY, 0, lParam);
  }
}

void FlexGridControl::ScrollToCol(int col) {
  grid_.SetLeftCol(std::min(col, Geometry().MaxLeftCol()));
}

// Room that has come at the right is filled from the left.
void FlexGridControl::FillWidth() { ScrollToCol(grid_.LeftCol()); }

// As wide as the caption and the rows in sight need; the whole column could be a million texts.
void FlexGridControl::FitColumn(int col) {
  int width = grid_.Measurer().WidthOf(grid_.Text(0, col));
  const GridGeometry::Range rows = Geometry().VisibleRows();
  for (int row = rows.first; row <= rows.last; ++row) {
    width = std::max(width, grid_.Measurer().WidthOf(grid_.Text(row, col)));
  }
  grid_.SetColWidth(col, width + kCellMargin);
  FillWidth();
}

CellText FlexGridControl::CurrentText() const { return grid_.Text(grid_.Row(), grid_.Col()); }

LRESULT FlexGridControl::CopyText(WPARAM size, char* buffer) const {
  if (size == 0) return 0;
  const CellText current = CurrentText();
  const std::string_view text = std::string_view(current).substr(0, size - 1);
  buffer[text.copy(buffer, text.size())] = '\0';
  return static_cast<LRESULT>(text.size());
}

}  // namespace tallyrun
