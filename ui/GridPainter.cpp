#include "ui/GridPainter.h"

#include <algorithm>
#include <string_view>

#include "ui/Handles.h"

namespace tallyrun {
namespace {

constexpr int kLine = 1;  // the cells' right and bottom border, in pixels at every DPI
constexpr int kLineColour = COLOR_3DLIGHT;

struct CellColours {
  COLORREF text;
  COLORREF back;
};

// A selection that is out of use: between the window's colour and the highlight.
COLORREF FadedHighlight() {
  const COLORREF window = GetSysColor(COLOR_WINDOW);
  const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
  const auto mixed = [](int most, int some) { return (3 * most + some) / 4; };
  return RGB(mixed(GetRValue(window), GetRValue(highlight)),
             mixed(GetGValue(window), GetGValue(highlight)),
             mixed(GetBValue(window), GetBValue(highlight)));
}

CellColours ColoursFor(const GridLook& look, bool selected) {
  if (!look.enabled) return {GetSysColor(COLOR_GRAYTEXT), GetSysColor(COLOR_BTNFACE)};
  if (!selected) return {GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW)};
  if (!look.focused) return {GetSysColor(COLOR_WINDOWTEXT), FadedHighlight()};
  return {GetSysColor(COLOR_HIGHLIGHTTEXT), GetSysColor(COLOR_HIGHLIGHT)};
}

RECT ToRect(const GridRect& cell) {
  return {cell.left, cell.top, cell.left + cell.width - kLine, cell.top + cell.height - kLine};
}

// What there is to draw of a cell's text: no more characters than the cell has pixels, and not
// the line ends that a file may leave behind a line's last cell.
std::string_view Drawable(std::string_view text, int pixels) {
  text = text.substr(0, static_cast<std::size_t>(std::max(pixels, 0)));
  while (!text.empty() && (text.back() == '\r' || text.back() == '\n')) text.remove_suffix(1);
  return text;
}

// Everything but the cells: their border lines, and the room beside and below them.
void PaintGround(HDC dc, const GridGeometry& geometry, const GridLook& look, const RECT& dirty) {
  const RECT cells = {0, 0, geometry.ColLeft(geometry.VisibleCols().last + 1),
                      geometry.RowTop(geometry.VisibleRows().last + 1)};
  RECT lines = {};
  IntersectRect(&lines, &cells, &dirty);
  FillRect(dc, &lines, GetSysColorBrush(kLineColour));
  const HBRUSH room = GetSysColorBrush(look.enabled ? COLOR_WINDOW : COLOR_BTNFACE);
  const RECT beside = {std::max(cells.right, dirty.left), dirty.top, dirty.right, dirty.bottom};
  const RECT below = {dirty.left, std::max(cells.bottom, dirty.top),
                      std::min(cells.right, dirty.right), dirty.bottom};
  for (const RECT& rest : {beside, below}) {
    if (rest.left < rest.right && rest.top < rest.bottom) FillRect(dc, &rest, room);
  }
}

void PaintCurrentCell(HDC dc, const FlexGrid& grid, const GridGeometry& geometry,
                      const GridLook& look) {
  if (grid.Row() < 1 || !look.enabled) return;
  const RECT cell = ToRect(geometry.CellBounds(grid.Row(), grid.Col()));
  if (look.focused) {
    // The dots are drawn with these two.
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(COLOR_WINDOW));
    DrawFocusRect(dc, &cell);
  } else {
    FrameRect(dc, &cell, GetSysColorBrush(COLOR_BTNSHADOW));
  }
}

}  // namespace

void PaintGrid(HDC dc, const FlexGrid& grid, const GridGeometry& geometry, const GridLook& look,
               const RECT& dirty) {
  PaintGround(dc, geometry, look, dirty);

  const GridBlock block = SelectedBlock(grid);
  const CellColours plain = ColoursFor(look, false);
  const CellColours selected = ColoursFor(look, true);
  const SelectScope font(dc, look.font);
  const GridRect area{dirty.left, dirty.top, dirty.right - dirty.left, dirty.bottom - dirty.top};
  geometry.ForEachCell(area, [&](int row, int col, const GridRect& bounds) {
    const CellColours& colours = block.Contains(row, col) ? selected : plain;
    SetTextColor(dc, colours.text);
    SetBkColor(dc, colours.back);
    const RECT cell = ToRect(bounds);
    const CellText cellText = grid.Text(row, col);
    const std::string_view text = Drawable(cellText, bounds.width);
    ExtTextOutA(dc, bounds.left + look.textMargin,
                bounds.top + (bounds.height - kLine - look.lineHeight) / 2,
                ETO_OPAQUE | ETO_CLIPPED, &cell, text.data(), static_cast<UINT>(text.size()),
                nullptr);
  });
  PaintCurrentCell(dc, grid, geometry, look);
}

}  // namespace tallyrun
