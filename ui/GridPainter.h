// Paints the part of a grid that a device context asks for: the screen's, a back buffer's or a
// test's. System colours; nothing is made while painting.
#pragma once

#include <windows.h>

#include "core/grid/FlexGrid.h"
#include "core/grid/GridGeometry.h"

namespace tallyrun {

struct GridLook {
  HFONT font = nullptr;
  int lineHeight = 0;  // of the font, pixels
  int textMargin = 0;  // left of a cell's text, pixels
  bool focused = false;
  bool enabled = true;
};

// Paints the cells, the selected block, the current cell and the empty room around them inside
// `dirty`. The header is none of its business.
void PaintGrid(HDC dc, const FlexGrid& grid, const GridGeometry& geometry, const GridLook& look,
               const RECT& dirty);

}  // namespace tallyrun
