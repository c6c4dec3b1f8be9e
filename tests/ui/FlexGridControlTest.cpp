// The grid's window under real messages: what mouse, keys, wheel, scroll bars and header do to
// the data, what is reported to the form, and what is painted where.
#include "tests/ui/TryForm.h"
#include "ui/Handles.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

struct FlexGridControlTest : TryFormTest {
  static constexpr int kCols = 8;

  FlexGridControlTest() {
    form.Show();
    control.SetFocus();
    grid.SetCols(kCols);
    for (int col = 0; col < kCols; ++col) grid.SetColWidth(col, 1500);
    grid.SetRows(101);
    control.Redraw();
  }

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageA(control.Handle(), message, wParam, lParam);
  }
  void Mouse(UINT message, int x, int y, WPARAM keys = 0) { Send(message, keys, MAKELPARAM(x, y)); }
  void MouseAt(UINT message, int row, int col, WPARAM keys = 0) {
    const GridRect cell = control.CellBounds(row, col);
    Mouse(message, cell.left + cell.width / 2, cell.top + cell.height / 2, keys);
  }
  void Click(int row, int col, WPARAM keys = 0) {
    MouseAt(WM_LBUTTONDOWN, row, col, keys | MK_LBUTTON);
    MouseAt(WM_LBUTTONUP, row, col, keys);
  }

  // The current cell and the selection's other corner.
  std::vector<int> Block() const { return {grid.Row(), grid.Col(), grid.RowSel(), grid.ColSel()}; }
  // What is on screen once everything that changed has been painted.
  static COLORREF PixelOf(HWND window, int x, int y) {
    Pump();
    return GetPixel(WindowDc(window).Get(), x, y);
  }
  HWND Header() const { return FindWindowExA(control.Handle(), nullptr, WC_HEADERA, nullptr); }

  FlexGridControl& control = form.grid;
  FlexGrid& grid = control.Grid();
};

TEST_F(FlexGridControlTest, ClicksAndDragsSelectABlockAndScrollPastTheEdge) {
  form.editor.SetFocus();
  Click(3, 2);
  EXPECT_TRUE(control.HasFocus());
  Click(1, 1, MK_SHIFT);
  EXPECT_THAT(Block(), ElementsAre(3, 2, 1, 1));
  MouseAt(WM_LBUTTONDOWN, 2, 1, MK_LBUTTON);
  MouseAt(WM_MOUSEMOVE, 4, 2, MK_LBUTTON);
  EXPECT_THAT(Block(), ElementsAre(2, 1, 4, 2));
  EXPECT_EQ(grid.TopRow(), 1);
  const int last = grid.TopRow() + grid.PageRows() + 2;
  const int below = control.Bounds().height + 30;
  for (int step = 0; step < 3; ++step) Mouse(WM_MOUSEMOVE, 20, below, MK_LBUTTON);
  EXPECT_EQ(grid.TopRow(), 4);
  Mouse(WM_LBUTTONUP, 20, below);
  EXPECT_NE(GetCapture(), control.Handle());
  MouseAt(WM_MOUSEMOVE, 5, 2);
  EXPECT_THAT(Block(), ElementsAre(2, 1, last, 0)) << "the button is up";
  grid.SetRows(3);
  const std::vector<int> before = Block();
  Mouse(WM_LBUTTONDOWN, 200, below - 60);
  Mouse(WM_LBUTTONUP, 200, below - 60);
  EXPECT_EQ(Block(), before) << "there is no cell below the last row";
}

TEST_F(FlexGridControlTest, ACaptionTakesTheFocusAndEveryRightClickIsReported) {
  std::vector<LONG> reports;
  control.RightClick.Set([&](POINT place) { reports.push_back(place.x); });
  grid.SetLeftCol(2);  // the header's own pixels are no longer the grid's
  control.Redraw();
  const LONG x = control.CellBounds(1, 3).left + 30;
  POINT caption = {x, 5};
  MapWindowPoints(control.Handle(), Header(), &caption, 1);
  const LPARAM at = MAKELPARAM(caption.x, caption.y);
  for (const UINT press : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_MBUTTONDOWN, WM_RBUTTONDOWN}) {
    form.editor.SetFocus();
    SendMessageA(Header(), press, 0, at);
    EXPECT_TRUE(control.HasFocus()) << press;
    SendMessageA(Header(), WM_LBUTTONUP, 0, at);
  }
  SendMessageA(Header(), WM_RBUTTONUP, 0, at);
  EXPECT_THAT(reports, ElementsAre(x));
  EXPECT_THAT(Block(), ElementsAre(1, 0, 1, 0));
  MouseAt(WM_RBUTTONDOWN, 6, 3, MK_RBUTTON);
  EXPECT_THAT(Block(), ElementsAre(6, 3, 6, 3)) << "current before the form hears of it";
  MouseAt(WM_RBUTTONUP, 6, 3);
  Send(WM_CONTEXTMENU, 0, -1);
  EXPECT_EQ(reports.size(), 3u) << "the menu key";
}

TEST_F(FlexGridControlTest, KeysMoveTheCurrentCell) {
  const std::tuple<int, std::vector<int>, std::vector<int>> cases[] = {
      {VK_DOWN, {}, {2, 0, 2, 0}},
      {VK_RIGHT, {VK_SHIFT}, {2, 0, 2, 1}},
      {VK_END, {VK_SHIFT, VK_CONTROL}, {2, 0, 100, kCols - 1}},
      {VK_UP, {}, {1, 0, 1, 0}},
      {VK_END, {VK_CONTROL}, {100, kCols - 1, 100, kCols - 1}},
      {VK_HOME, {VK_CONTROL}, {1, 0, 1, 0}},
      {VK_NEXT, {}, {1 + grid.PageRows(), 0, 1 + grid.PageRows(), 0}},
      {VK_PRIOR, {}, {1, 0, 1, 0}},
      {VK_END, {}, {1, kCols - 1, 1, kCols - 1}},
      {VK_LEFT, {}, {1, kCols - 2, 1, kCols - 2}},
      {VK_HOME, {}, {1, 0, 1, 0}},
  };
  for (const auto& [key, held, block] : cases) {
    SendKey(control, WM_KEYDOWN, key, held);
    EXPECT_EQ(Block(), block) << "key " << key;
  }
}

TEST_F(FlexGridControlTest, EveryWayOfScrollingIsReportedAtOnce) {
  int reports = 0;
  control.Scroll.Set([&] { ++reports; });
  const std::vector<std::pair<const char*, std::function<void()>>> steps = {
      {"page down", [&] { Send(WM_VSCROLL, SB_PAGEDOWN); }},
      {"wheel", [&] { Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA)); }},
      {"column right", [&] { Send(WM_HSCROLL, SB_LINERIGHT); }},
      {"wheel to the side", [&] { Send(WM_MOUSEHWHEEL, MAKEWPARAM(0, WHEEL_DELTA)); }},
      {"the program", [&] { grid.SetTopRow(50); }},
      {"key", [&] { SendKey(control, WM_KEYDOWN, VK_HOME, {VK_CONTROL}); }},
      {"end", [&] { Send(WM_VSCROLL, SB_BOTTOM); }},
      {"right end", [&] { Send(WM_HSCROLL, SB_RIGHT); }},
      {"rows removed", [&] { grid.SetRows(50); }},
  };
  for (const auto& [what, step] : steps) {
    reports = 0;
    step();
    EXPECT_GT(reports, 0) << what;
  }
  EXPECT_EQ(grid.TopRow(), 50 - grid.PageRows());
}

TEST_F(FlexGridControlTest, ABarShowsWhileThereIsSomethingToScrollTo) {
  const auto bars = [&](int rows) {
    grid.SetRows(rows + 1);
    control.Redraw();
    return static_cast<DWORD>(GetWindowLongA(control.Handle(), GWL_STYLE)) &
           (WS_VSCROLL | WS_HSCROLL);
  };
  EXPECT_EQ(bars(100), DWORD{WS_VSCROLL | WS_HSCROLL});
  EXPECT_EQ(bars(2), DWORD{WS_HSCROLL});
  for (int col = 0; col < kCols; ++col) grid.SetColWidth(col, 300);
  EXPECT_EQ(bars(2), 0u);
  // The room of a bar is the rows'.
  EXPECT_EQ(bars(grid.PageRows()), 0u);
  EXPECT_EQ(bars(grid.PageRows() + 1), DWORD{WS_VSCROLL});
  Send(WM_VSCROLL, SB_BOTTOM);
  EXPECT_EQ(grid.TopRow(), 2);
  bars(50'000);
  Send(WM_VSCROLL, SB_LINEDOWN);
  EXPECT_EQ(GetScrollPos(control.Handle(), SB_VERT), 2) << "less than a pixel";
}

TEST_F(FlexGridControlTest, TheHeaderDrawsItsCaptions) {
  const auto inkOf = [&](const char* caption) {
    grid.SetText(0, 1, caption);
    const int left = control.CellBounds(1, 1).left;
    int dark = 0;
    for (int x = left + 2; x < left + 40; ++x) {
      for (int y = 2; y < 14; ++y) dark += GetGValue(PixelOf(Header(), x, y)) < 0x80;
    }
    return dark;
  };
  EXPECT_EQ(inkOf(""), 0);
  EXPECT_GT(inkOf("MMM"), 20);
}

TEST_F(FlexGridControlTest, ASelectedRowIsPaintedWholeAndItsCurrentCellFramedAsWell) {
  const auto painted = [&](int row, int col, int inset) {
    const GridRect cell = control.CellBounds(row, col);
    return PixelOf(control.Handle(), cell.left + inset, cell.top + inset);
  };
  const COLORREF window = GetSysColor(COLOR_WINDOW);
  grid.SetRow(2);
  for (const bool isFocused : {true, false}) {
    (isFocused ? static_cast<Control&>(control) : form.editor).SetFocus();
    grid.SetCol(1);
    const COLORREF single = painted(2, 1, 2);
    EXPECT_NE(single, window);
    EXPECT_EQ(painted(2, 2, 2), window);
    grid.SelectRow(2);
    for (int col = 0; col < 3; ++col) EXPECT_EQ(painted(2, col, 2), single) << col;
    EXPECT_NE(painted(2, 0, 0), painted(2, 0, 2)) << "the current cell's frame";
    EXPECT_EQ(painted(2, 1, 0), painted(2, 1, 2));
  }
}

}  // namespace
}  // namespace tallyrun::testing
