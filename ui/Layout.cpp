#include "ui/Layout.h"

#include <algorithm>
#include <map>

#include "ui/Form.h"

namespace tallyrun {
namespace {

// Borders and room above and below a line, at 96 DPI: 23 pixels with the usual message font.
constexpr int kRoomAroundLine = 8;

}  // namespace

LayoutArea::LayoutArea(Form& form)
    : form_(form), screen_(nullptr), font_(screen_.Get(), form.Font()) {
  lineHeight_ = LineHeightOf(screen_.Get());
  RECT client = {};
  GetClientRect(form.Handle(), &client);
  const SIZE least = form.MinimumClientSize();
  width_ = static_cast<int>(std::max(client.right, least.cx));
  height_ = static_cast<int>(std::max(client.bottom, least.cy));
}

int LayoutArea::Scale(int pixelsAt96) const { return form_.Scale(pixelsAt96); }

int LayoutArea::TextWidth(const std::string& text) const {
  SIZE size = {};
  GetTextExtentPoint32A(screen_.Get(), text.data(), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

int LayoutArea::BoxHeight() const { return LineHeight() + Scale(kRoomAroundLine); }
int LayoutArea::ButtonHeight() const { return BoxHeight(); }
int LayoutArea::ButtonWidth(const std::string& text) const {
  return std::max(Scale(75), TextWidth(text) + Scale(20));
}
int LayoutArea::OptionWidth(const std::string& text) const { return TextWidth(text) + Scale(24); }
int LayoutArea::DateWidth() const { return TextWidth("00-MMM-0000") + Scale(40); }

void LayoutArea::Place(Control& control, const PixelRect& bounds) {
  if (control.Handle() == nullptr) return;
  placements_.push_back(
      {&control, {bounds.x, bounds.y, std::max(bounds.width, 0), std::max(bounds.height, 0)}});
}

void LayoutArea::SetMinimum(int width, int height) { minimum_ = {width, height}; }

void LayoutArea::Apply() {
  // A batch may only hold windows of one parent.
  std::map<HWND, std::vector<const Placement*>> byParent;
  for (Placement& placement : placements_) {
    // Most controls stay where they are when the window grows or the mode changes.
    if (placement.control->Bounds() == placement.bounds) continue;
    placement.bounds.height = placement.control->WindowHeightFor(placement.bounds.height);
    byParent[GetParent(placement.control->Handle())].push_back(&placement);
  }
  // What comes free is erased when it is painted, once, and not with each move.
  constexpr UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | SWP_DEFERERASE;
  for (const auto& [parent, placed] : byParent) {
    HDWP batch = BeginDeferWindowPos(static_cast<int>(placed.size()));
    for (const Placement* placement : placed) {
      const PixelRect& to = placement->bounds;
      if (batch != nullptr) {
        batch = DeferWindowPos(batch, placement->control->Handle(), nullptr, to.x, to.y, to.width,
                               to.height, flags);
      }
    }
    if (batch != nullptr && EndDeferWindowPos(batch) != FALSE) continue;
    for (const Placement* placement : placed) {
      const PixelRect& to = placement->bounds;
      SetWindowPos(placement->control->Handle(), nullptr, to.x, to.y, to.width, to.height, flags);
    }
  }
}

}  // namespace tallyrun
