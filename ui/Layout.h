// Placing a form's controls as its picture shows them: rows from the top and from the bottom, each
// from left to right, and one control in the room between them. Sizes follow the form's font; the
// form's least size follows from what stands in it.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "ui/Control.h"
#include "ui/Handles.h"

namespace tallyrun {

// A piece of a row, with its width in pixels: a control, or room between controls.
struct LayoutItem {
  static constexpr int kAllThatIsLeft = 100'000;

  // As wide as what the control shows needs.
  LayoutItem(Control& shown) : control(&shown) {}
  LayoutItem(Control& shown, int pixels) : LayoutItem(shown, pixels, pixels) {}
  // Where the row is too narrow, items give way in turn down to their least width.
  LayoutItem(Control& shown, int pixels, int leastPixels)
      : control(&shown), width(pixels), least(leastPixels) {}
  // Room, beside what stands between controls anyway: what there is, or so many pixels.
  LayoutItem() : width(kAllThatIsLeft) {}
  explicit LayoutItem(int pixels) : width(pixels), least(pixels) {}

  Control* control = nullptr;
  int width = 0;  // 0 for the control's own
  int least = 0;
};

class LayoutArea {
 public:
  // The client area of `form` as it is now, without its edges; never less than the form's minimum.
  explicit LayoutArea(Form& form);
  LayoutArea(const LayoutArea&) = delete;
  LayoutArea& operator=(const LayoutArea&) = delete;

  // Pixels at 96 DPI to pixels of this form.
  int Scale(int pixelsAt96) const;
  // Sizes in pixels that fit the form's font.
  int TextWidth(const std::string& text) const;
  int RowHeight() const;                           // of every control but grids and lists
  int ButtonWidth(const std::string& text) const;  // at least 75 at 96 DPI
  int OptionWidth(const std::string& text) const;  // a check or option mark and its text
  int DateWidth() const;                           // a date picker's
  // The room that stands between controls of a row, and an item that sets groups apart.
  int Gap() const;
  LayoutItem Apart() const;

  // Takes the next row from the top or the bottom of the room that is left.
  void TopRow(std::initializer_list<LayoutItem> items);
  void BottomRow(std::initializer_list<LayoutItem> items);
  // Gives the control all the room that is left, and gives that back.
  PixelRect Fill(Control& control, int leastWidth, int leastHeight);
  // Puts the control at `bounds`, in pixels of its parent.
  void Place(Control& control, const PixelRect& bounds);
  // What follows stands in a frame of this size, which has its place in the form already.
  void GoInside(int width, int height);

  // The least client size, in pixels, at which everything is visible.
  SIZE Minimum() const { return minimum_; }
  // Moves everything that was placed, each parent's children at once.
  void Apply();

 private:
  struct Placement {
    Control* control;
    PixelRect bounds;
  };

  void PlaceRow(std::initializer_list<LayoutItem> items, int top);
  void Require(int width, int height);

  Form& form_;
  // One for all texts: asking the system for a device context costs more than measuring.
  WindowDc screen_;
  SelectScope font_;
  PixelRect room_;  // what is left
  SIZE minimum_;
  bool isInside_ = false;  // a frame, whose size is none of the form's
  std::vector<Placement> placements_;
};

}  // namespace tallyrun
