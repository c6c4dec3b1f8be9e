#include "ui/Layout.h"

#include <algorithm>
#include <map>

#include "ui/Dpi.h"
#include "ui/Form.h"

namespace tallyrun {
namespace {

// The distances of the Windows guidelines, in pixels at 96 DPI.
constexpr int kEdge = 11;       // 7 dialog units around the window's contents
constexpr int kRelated = 7;     // 4 dialog units between related controls
constexpr int kGroups = 11;     // 7 dialog units between groups
constexpr int kAroundLine = 8;  // borders and room above and below a line of text

}  // namespace

LayoutArea::LayoutArea(Form& form)
    : form_(form), screen_(nullptr), font_(screen_.Get(), form.Font()) {
  RECT client = {};
  GetClientRect(form.Handle(), &client);
  const SIZE least = form.MinimumClientSize();
  const int edges = 2 * Scale(kEdge);
  room_ = {Scale(kEdge), Scale(kEdge), static_cast<int>(std::max(client.right, least.cx)) - edges,
           static_cast<int>(std::max(client.bottom, least.cy)) - edges};
  minimum_ = {edges, edges - Gap()};  // a gap follows each row, and none the last
}

int LayoutArea::Scale(int pixelsAt96) const { return form_.Scale(pixelsAt96); }

int LayoutArea::TextWidth(const std::string& text) const {
  SIZE size = {};
  GetTextExtentPoint32A(screen_.Get(), text.data(), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

int LayoutArea::RowHeight() const { return LineHeightOf(screen_.Get()) + Scale(kAroundLine); }
int LayoutArea::ButtonWidth(const std::string& text) const {
  return std::max(Scale(75), TextWidth(text) + Scale(20));
}
int LayoutArea::OptionWidth(const std::string& text) const { return TextWidth(text) + Scale(24); }
int LayoutArea::DateWidth() const { return TextWidth("00-MMM-0000") + Scale(40); }
int LayoutArea::Gap() const { return Scale(kRelated); }
LayoutItem LayoutArea::Apart() const { return LayoutItem(Scale(kGroups - kRelated)); }

void LayoutArea::TopRow(std::initializer_list<LayoutItem> items) {
  PlaceRow(items, room_.y);
  room_.y += RowHeight() + Gap();
}

void LayoutArea::BottomRow(std::initializer_list<LayoutItem> items) {
  PlaceRow(items, room_.y + room_.height - RowHeight());
}

void LayoutArea::PlaceRow(std::initializer_list<LayoutItem> items, int top) {
  std::vector<LayoutItem> row(items);
  int wanted = -Gap();
  int least = -Gap();
  for (LayoutItem& item : row) {
    if (item.width == 0) item.width = item.least = item.control->WidthIn(*this);
    const int behind = item.control == nullptr ? 0 : Gap();
    wanted += item.width + behind;
    least += item.least + behind;
  }
  int left = room_.x;
  int excess = wanted - room_.width;
  for (const LayoutItem& item : row) {
    const int cut = std::clamp(excess, 0, item.width - item.least);
    excess -= cut;
    if (item.control != nullptr) {
      Place(*item.control, {left, top, item.width - cut, RowHeight()});
      left += Gap();
    }
    left += item.width - cut;
  }
  room_.height -= RowHeight() + Gap();
  Require(least, RowHeight() + Gap());
}

PixelRect LayoutArea::Fill(Control& control, int leastWidth, int leastHeight) {
  Place(control, room_);
  Require(leastWidth, leastHeight + Gap());
  return room_;
}

// Of the room between the edges: so wide, and so much more of its height.
void LayoutArea::Require(int width, int height) {
  if (isInside_) return;
  minimum_.cx = std::max(minimum_.cx, LONG{width + 2 * Scale(kEdge)});
  minimum_.cy += height;
}

void LayoutArea::GoInside(int width, int height) {
  const int edge = Scale(kEdge);
  room_ = {edge, edge, width - 2 * edge, height - 2 * edge};
  isInside_ = true;
}

void LayoutArea::Place(Control& control, const PixelRect& bounds) {
  if (control.Handle() == nullptr) return;
  placements_.push_back(
      {&control, {bounds.x, bounds.y, std::max(bounds.width, 0), std::max(bounds.height, 0)}});
}

void LayoutArea::Apply() {
  // A batch may only hold windows of one parent.
  std::map<HWND, std::vector<Placement>> byParent;
  for (const auto& [control, bounds] : placements_) {
    // Most controls stay where they are when the window grows or the mode changes.
    if (control->Bounds() == bounds) continue;
    PixelRect to = bounds;
    to.height = control->WindowHeightFor(bounds.height);
    byParent[GetParent(control->Handle())].push_back({control, to});
  }
  // What comes free is erased when it is painted, once, and not with each move.
  constexpr UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | SWP_DEFERERASE;
  for (const auto& [parent, placed] : byParent) {
    HDWP batch = BeginDeferWindowPos(static_cast<int>(placed.size()));
    for (const auto& [control, to] : placed) {
      batch =
          DeferWindowPos(batch, control->Handle(), nullptr, to.x, to.y, to.width, to.height, flags);
    }
    EndDeferWindowPos(batch);
  }
}

}  // namespace tallyrun
