// A grid's captions in the system's header control: it lies over the rows, follows the columns'
// widths and scroll position, and lets the clerk drag their borders. Reads the grid's row 0.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "core/grid/FlexGrid.h"
#include "core/grid/GridGeometry.h"
#include "ui/WindowClass.h"

namespace tallyrun {

class GridHeader {
 public:
  // Makes the header as a child of `grid`, which owns it and gets its notifications.
  void Create(HWND grid);
  // The grid's window has gone and took the header along.
  void Forget();

  HWND Handle() const { return window_; }
  // Sets the font and takes up the height that goes with it.
  void ApplyFont(HFONT font);
  int Height() const { return height_; }

  // Brings captions, widths and place up to the grid's; `width` is the grid's client width.
  void Follow(const FlexGrid& grid, const GridGeometry& geometry, int width);
  // True while Follow itself changes widths, which nobody dragged.
  bool IsFollowing() const { return following_; }

 private:
  struct Item {
    std::string caption;
    int width = 0;
    bool operator==(const Item&) const = default;
  };

  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam,
                                     LPARAM lParam) noexcept;

  HWND window_ = nullptr;
  ClassProc classProc_;
  int height_ = 0;
  bool following_ = false;
  std::vector<Item> items_;  // as the header shows them
  GridRect place_;
};

}  // namespace tallyrun
