// Placing a form's controls: the room there is, sizes from 96-DPI constants and the form's font,
// and one batch of moves. What stands where is the form's own business.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "ui/Control.h"
#include "ui/Handles.h"

namespace tallyrun {

// The distances of the Windows guidelines, in pixels at 96 DPI.
namespace spacing {
inline constexpr int kEdge = 11;       // 7 dialog units around the window's contents
inline constexpr int kRelated = 7;     // 4 dialog units between related controls
inline constexpr int kUnrelated = 11;  // 7 dialog units between groups
inline constexpr int kLabel = 5;       // 3 dialog units between a label and its control
}  // namespace spacing

class LayoutArea {
 public:
  // The client area of `form` as it is now.
  explicit LayoutArea(Form& form);
  LayoutArea(const LayoutArea&) = delete;
  LayoutArea& operator=(const LayoutArea&) = delete;

  // Pixels to fill; never less than the form's minimum.
  int Width() const { return width_; }
  int Height() const { return height_; }

  // Pixels at 96 DPI to pixels of this form.
  int Scale(int pixelsAt96) const;
  // Sizes in pixels that fit the form's font.
  int TextWidth(const std::string& text) const;
  int LineHeight() const { return lineHeight_; }
  int BoxHeight() const;                           // of a text box, combo box or date picker
  int ButtonHeight() const;                        // the same, so that they line up in a row
  int ButtonWidth(const std::string& text) const;  // at least 75 at 96 DPI
  int OptionWidth(const std::string& text) const;  // a check or option mark and its text
  int DateWidth() const;                           // a date picker's

  // Puts the control at `bounds`, in pixels of its parent, when the layout is done.
  void Place(Control& control, const PixelRect& bounds);
  // The least client size, in pixels, at which everything is visible.
  void SetMinimum(int width, int height);
  SIZE Minimum() const { return minimum_; }

  // Moves everything that was placed, each parent's children at once.
  void Apply();

 private:
  struct Placement {
    Control* control;
    PixelRect bounds;
  };

  Form& form_;
  // One for all texts: asking the system for a device context costs more than measuring.
  WindowDc screen_;
  SelectScope font_;
  int lineHeight_ = 0;
  int width_ = 0;
  int height_ = 0;
  SIZE minimum_ = {};
  std::vector<Placement> placements_;
};

}  // namespace tallyrun
