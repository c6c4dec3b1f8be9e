// The grid's window under real messages: what mouse, keys, wheel, scroll bars and header do to
// the data, what is reported to the form, and what is painted where.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "ui/FlexGridControl.h"
#include "ui/Form.h"
#include "ui/Handles.h"
#include "ui/TextBox.h"

namespace tallyrun {
namespace {

enum ControlId { kGridId = 100, kEditorId };

class GridForm : public Form {
 public:
  GridForm() : Form("GridFormTest", {.width = 500, .height = 290}) {}

  FlexGridControl flxGrid;
  TextBox txtOther;

 protected:
  void CreateControls() override {
    txtOther.Create(*this, kEditorId);
    flxGrid.Create(*this, kGridId);
  }
  void Layout(LayoutArea& area) override {
    area.TopRow({{txtOther, 100}});
    area.Fill(flxGrid, 0, 0);
  }
};

// The wheel's message parameter for a turn by `delta`.
WPARAM WheelBy(int delta) { return static_cast<WPARAM>(static_cast<WORD>(delta)) << 16; }

class FlexGridControlTest : public ::testing::Test {
 protected:
  static constexpr int kCols = 8;
  static constexpr int kColWidth = 1500;  // twips

  FlexGridControlTest() {
    form_.Show();
    control_.SetFocus();
    grid_.SetCols(kCols);
    for (int col = 0; col < kCols; ++col) {
      grid_.SetText(0, col, "Caption " + std::to_string(col));
      grid_.SetColWidth(col, kColWidth);
    }
    LoadRows(100);
    control_.Redraw();
  }

  void LoadRows(int rows) {
    grid_.SetRows(rows + 1);
    for (int row = 1; row <= rows; ++row) grid_.SetText(row, 0, std::to_string(row));
  }

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageA(control_.Handle(), message, wParam, lParam);
  }
  void Mouse(UINT message, int x, int y, WPARAM keys = 0) { Send(message, keys, MAKELPARAM(x, y)); }
  void MouseAt(UINT message, int row, int col, WPARAM keys = 0) {
    const GridRect cell = control_.CellBounds(row, col);
    Mouse(message, cell.left + cell.width / 2, cell.top + cell.height / 2, keys);
  }
  void Click(int row, int col, WPARAM keys = 0) {
    MouseAt(WM_LBUTTONDOWN, row, col, keys | MK_LBUTTON);
    MouseAt(WM_LBUTTONUP, row, col, keys);
  }
  void Key(int key, bool shift = false, bool control = false) {
    std::array<BYTE, 256> state = {};
    state[VK_SHIFT] = shift ? 0x80 : 0;
    state[VK_CONTROL] = control ? 0x80 : 0;
    SetKeyboardState(state.data());
    Send(WM_KEYDOWN, static_cast<WPARAM>(key));
    state = {};
    SetKeyboardState(state.data());
  }

  GridCell Current() const { return {grid_.Row(), grid_.Col()}; }
  GridCell Corner() const { return {grid_.RowSel(), grid_.ColSel()}; }
  HWND Header() const { return FindWindowExA(control_.Handle(), nullptr, WC_HEADERA, nullptr); }
  RECT Client() const {
    RECT client = {};
    GetClientRect(control_.Handle(), &client);
    return client;
  }

  GridForm form_;
  FlexGridControl& control_ = form_.flxGrid;
  FlexGrid& grid_ = control_.Grid();
};

TEST_F(FlexGridControlTest, ClicksMakeCellsCurrentAndExtendTheBlock) {
  form_.txtOther.SetFocus();
  Click(3, 2);
  EXPECT_TRUE(control_.HasFocus());
  EXPECT_EQ(Current(), (GridCell{3, 2}));
  EXPECT_EQ(Corner(), (GridCell{3, 2}));
  Click(1, 1, MK_SHIFT);
  EXPECT_EQ(Current(), (GridCell{3, 2}));
  EXPECT_EQ(Corner(), (GridCell{1, 1}));
  LoadRows(2);
  Mouse(WM_LBUTTONDOWN, 20, Client().bottom - 5);
  Mouse(WM_LBUTTONUP, 20, Client().bottom - 5);
  EXPECT_EQ(Corner(), (GridCell{1, 1})) << "there is no cell below the last row";
}

TEST_F(FlexGridControlTest, DraggingSelectsABlockAndScrollsPastTheEdge) {
  MouseAt(WM_LBUTTONDOWN, 2, 1, MK_LBUTTON);
  MouseAt(WM_MOUSEMOVE, 4, 2, MK_LBUTTON);
  EXPECT_EQ(Current(), (GridCell{2, 1}));
  EXPECT_EQ(Corner(), (GridCell{4, 2}));
  EXPECT_EQ(grid_.TopRow(), 1);
  const int firstBelow = grid_.TopRow() + grid_.PageRows();
  for (int step = 0; step < 3; ++step) Mouse(WM_MOUSEMOVE, 20, Client().bottom + 30, MK_LBUTTON);
  EXPECT_EQ(Current(), (GridCell{2, 1}));
  EXPECT_EQ(Corner(), (GridCell{firstBelow + 2, 0}));
  EXPECT_EQ(grid_.TopRow(), 4);
  Mouse(WM_LBUTTONUP, 20, Client().bottom + 30);
  EXPECT_NE(GetCapture(), control_.Handle());
  MouseAt(WM_MOUSEMOVE, 5, 2);
  EXPECT_EQ(Corner(), (GridCell{firstBelow + 2, 0})) << "the button is up";
}

TEST_F(FlexGridControlTest, RightClicksKeepTheBlockTheyFallInto) {
  std::vector<POINT> reports;
  GridCell atReport;
  control_.RightClick.Set([&](POINT at) {
    reports.push_back(at);
    atReport = Current();
  });
  grid_.SetRow(2);
  grid_.SetCol(1);
  grid_.SetRowSel(4);
  const auto rightClick = [&](int row, int col) {
    MouseAt(WM_RBUTTONDOWN, row, col, MK_RBUTTON);
    MouseAt(WM_RBUTTONUP, row, col);
  };
  rightClick(3, 1);
  EXPECT_EQ(Corner(), (GridCell{4, 1}));
  rightClick(6, 2);
  EXPECT_EQ(Corner(), (GridCell{6, 2}));
  EXPECT_EQ(atReport, (GridCell{6, 2})) << "current before the form hears of it";
  ASSERT_EQ(reports.size(), 2u);
  const GridRect cell = control_.CellBounds(6, 2);
  EXPECT_EQ(reports[1].x, cell.left + cell.width / 2);
  Click(1, 0);
  EXPECT_EQ(reports.size(), 2u);
  Send(WM_CONTEXTMENU, 0, -1);
  EXPECT_EQ(reports.size(), 3u) << "the menu key";
}

TEST_F(FlexGridControlTest, APressOnACaptionTakesTheFocusAndARightClickThereIsReported) {
  std::vector<POINT> reports;
  control_.RightClick.Set([&](POINT place) { reports.push_back(place); });
  grid_.SetLeftCol(2);  // the header's own pixels are no longer the grid's
  control_.Redraw();
  POINT caption = {control_.CellBounds(1, 3).left + 30, 5};
  MapWindowPoints(control_.Handle(), Header(), &caption, 1);
  const LPARAM at = MAKELPARAM(caption.x, caption.y);
  for (const UINT press : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_MBUTTONDOWN, WM_RBUTTONDOWN}) {
    form_.txtOther.SetFocus();
    SendMessageA(Header(), press, 0, at);
    EXPECT_TRUE(control_.HasFocus()) << press;
    SendMessageA(Header(), WM_LBUTTONUP, 0, at);
  }
  SendMessageA(Header(), WM_RBUTTONUP, 0, at);
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_EQ(reports[0].x, control_.CellBounds(1, 3).left + 30);
  EXPECT_EQ(Current(), (GridCell{1, 0}));
}

TEST_F(FlexGridControlTest, KeysMoveTheCurrentCellUnlessTheFormTakesThem) {
  const int page = grid_.PageRows();
  const struct {
    int key;
    bool shift, control;
    GridCell current, corner;
  } cases[] = {
      {VK_DOWN, false, false, {2, 0}, {2, 0}},
      {VK_DOWN, true, false, {2, 0}, {3, 0}},
      {VK_RIGHT, true, false, {2, 0}, {3, 1}},
      {VK_END, true, true, {2, 0}, {100, kCols - 1}},
      {VK_UP, false, false, {1, 0}, {1, 0}},
      {VK_END, false, true, {100, kCols - 1}, {100, kCols - 1}},
      {VK_HOME, false, true, {1, 0}, {1, 0}},
      {VK_NEXT, false, false, {1 + page, 0}, {1 + page, 0}},
      {VK_PRIOR, false, false, {1, 0}, {1, 0}},
      {VK_END, false, false, {1, kCols - 1}, {1, kCols - 1}},
      {VK_LEFT, false, false, {1, kCols - 2}, {1, kCols - 2}},
      {VK_HOME, false, false, {1, 0}, {1, 0}},
  };
  for (const auto& each : cases) {
    Key(each.key, each.shift, each.control);
    EXPECT_EQ(Current(), each.current) << "key " << each.key;
    EXPECT_EQ(Corner(), each.corner) << "key " << each.key;
  }
  control_.KeyDown.Set([](KeyEvent& key) { key.handled = true; });
  Key(VK_DOWN);
  EXPECT_EQ(Current(), (GridCell{1, 0}));
}

TEST_F(FlexGridControlTest, EnterReachesItAndTabLeavesIt) {
  const auto wants = [&](WPARAM key) {
    MSG message = {};
    message.hwnd = control_.Handle();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    return (Send(WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(&message)) &
            (DLGC_WANTALLKEYS | DLGC_WANTTAB)) != 0;
  };
  EXPECT_TRUE(wants(VK_RETURN));
  EXPECT_FALSE(wants(VK_TAB));
  EXPECT_EQ(Send(WM_GETDLGCODE) & (DLGC_WANTARROWS | DLGC_WANTCHARS),
            DLGC_WANTARROWS | DLGC_WANTCHARS);
  int pressed = 0;
  control_.KeyPress.Set([&](KeyEvent& key) { pressed = key.key; });
  Send(WM_CHAR, '\r');
  EXPECT_EQ(pressed, '\r');
}

TEST_F(FlexGridControlTest, EveryWayOfScrollingIsReportedAtOnce) {
  int reports = 0;
  control_.Scroll.Set([&] { ++reports; });
  const int page = grid_.PageRows();
  const std::vector<std::pair<const char*, std::function<void()>>> steps = {
      {"line down", [&] { Send(WM_VSCROLL, SB_LINEDOWN); }},
      {"page down", [&] { Send(WM_VSCROLL, SB_PAGEDOWN); }},
      {"wheel", [&] { Send(WM_MOUSEWHEEL, WheelBy(-WHEEL_DELTA)); }},
      {"column right", [&] { Send(WM_HSCROLL, SB_LINERIGHT); }},
      {"wheel to the side", [&] { Send(WM_MOUSEHWHEEL, WheelBy(WHEEL_DELTA)); }},
      {"the program", [&] { grid_.SetTopRow(50); }},
      {"key", [&] { Key(VK_HOME, false, true); }},
      {"end", [&] { Send(WM_VSCROLL, SB_BOTTOM); }},
      {"right end", [&] { Send(WM_HSCROLL, SB_RIGHT); }},
      {"rows removed", [&] { grid_.SetRows(50); }},
  };
  for (const auto& [what, step] : steps) {
    const int before = reports;
    step();
    EXPECT_GT(reports, before) << what;
  }
  EXPECT_EQ(grid_.TopRow(), 50 - page);
  reports = 0;
  Send(WM_VSCROLL, SB_LINEDOWN);
  Send(WM_HSCROLL, SB_LINERIGHT);
  Click(grid_.TopRow() + 1, kCols - 1);
  EXPECT_EQ(reports, 0) << "nothing moved";
}

TEST_F(FlexGridControlTest, ABarShowsWhileThereIsSomethingToScrollTo) {
  constexpr DWORD kBoth = WS_VSCROLL | WS_HSCROLL;
  const auto bars = [&] {
    control_.Redraw();
    return static_cast<DWORD>(GetWindowLongA(control_.Handle(), GWL_STYLE)) & kBoth;
  };
  EXPECT_EQ(bars(), kBoth);
  const int pageBetweenBars = grid_.PageRows();
  LoadRows(2);
  EXPECT_EQ(bars(), DWORD{WS_HSCROLL});
  for (int col = 0; col < kCols; ++col) grid_.SetColWidth(col, kColWidth / 5);
  EXPECT_EQ(bars(), 0u);
  EXPECT_GT(grid_.PageRows(), pageBetweenBars) << "the room of a bar is the rows'";
  LoadRows(grid_.PageRows());
  EXPECT_EQ(bars(), 0u);
  LoadRows(grid_.PageRows() + 1);
  EXPECT_EQ(bars(), DWORD{WS_VSCROLL});
  Send(WM_VSCROLL, SB_BOTTOM);
  EXPECT_EQ(grid_.TopRow(), 2);
  LoadRows(50'000);
  control_.Redraw();
  Send(WM_VSCROLL, SB_LINEDOWN);
  EXPECT_EQ(GetScrollPos(control_.Handle(), SB_VERT), 2) << "less than a pixel";
}

TEST_F(FlexGridControlTest, TheHeaderDrawsItsCaptions) {
  constexpr int kWidth = 40;
  const auto inkOf = [&](const char* caption) {
    grid_.SetText(0, 1, caption);
    control_.Redraw();
    const int left = control_.CellBounds(1, 1).left;
    const HDC screen = GetDC(Header());
    int dark = 0;
    for (int x = left + 2; x < left + kWidth; ++x) {
      for (int y = 2; y < 14; ++y) dark += GetGValue(GetPixel(screen, x, y)) < 0x80;
    }
    ReleaseDC(Header(), screen);
    return dark;
  };
  EXPECT_EQ(inkOf(""), 0);
  EXPECT_GT(inkOf("MMM"), 20);
}

TEST_F(FlexGridControlTest, ASelectedRowIsPaintedWholeAndItsCurrentCellFramedAsWell) {
  const WindowDc screen(nullptr);
  const UniqueDc dc(CreateCompatibleDC(screen.Get()));
  const UniqueBitmap bitmap(CreateCompatibleBitmap(screen.Get(), 500, 300));
  const SelectScope selected(dc.Get(), bitmap.Get());
  const auto painted = [&](int row, int col, int inset) {
    Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.Get()), PRF_CLIENT);
    const GridRect cell = control_.CellBounds(row, col);
    return GetPixel(dc.Get(), cell.left + inset, cell.top + inset);
  };
  const COLORREF window = GetSysColor(COLOR_WINDOW);
  grid_.SetRow(2);
  for (const bool isFocused : {true, false}) {
    (isFocused ? static_cast<Control&>(control_) : form_.txtOther).SetFocus();
    grid_.SetCol(1);
    const COLORREF single = painted(2, 1, 2);
    EXPECT_NE(single, window);
    EXPECT_EQ(painted(2, 2, 2), window);
    grid_.SelectRow(2);
    for (int col = 0; col < 3; ++col) EXPECT_EQ(painted(2, col, 2), single) << col;
    EXPECT_NE(painted(2, 0, 0), painted(2, 0, 2)) << "the current cell's frame";
    EXPECT_EQ(painted(2, 1, 0), painted(2, 1, 2));
  }
}

TEST_F(FlexGridControlTest, OneChangeOrManyCauseOnePaint) {
  const auto needsPaint = [&] { return GetUpdateRect(control_.Handle(), nullptr, FALSE) != FALSE; };
  ASSERT_FALSE(needsPaint());
  grid_.SetText(1, 1, "a");
  grid_.SetText(1, 2, "b");
  EXPECT_TRUE(needsPaint());
  control_.Redraw();
  EXPECT_FALSE(needsPaint());
  EXPECT_FALSE(grid_.TakeChanges()) << "the paint took them";
  grid_.SetText(1, 1, "c");
  EXPECT_TRUE(needsPaint());
}

}  // namespace
}  // namespace tallyrun
