// The real windows under real messages, timed from a message or a click until all that follows is
// handled and painted: a busy broker's day button by button, a sheet of a million rows, and a list
// of 100,000 accounts. Boxes, dialogs and the text editor are answered at once by the recorder.
// Prints the median of many times: "figure NAME SECONDS". What was done is seen to be right; no
// time is asserted.
#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "bench/DayFiles.h"
#include "core/grid/GridRows.h"
#include "lists/frmList.h"
#include "tests/support/MainWindowFixture.h"

namespace tallyrun::bench {
namespace {

using namespace frmMainIds;

constexpr int kTimes = 31;

class WindowTimes : public testing::MainWindowFixture {
 protected:
  ~WindowTimes() override {
    for (auto& [name, seconds] : seconds_) {
      std::sort(seconds.begin(), seconds.end());
      std::printf("figure %s %.6f\n", name.c_str(), seconds.at(seconds.size() / 2));
    }
    std::fflush(stdout);
  }

  void LayOut(const DaySize& size) {
    const DayFiles files(size, 1);
    tradeFile_ = folder.Write("payin_05-01-2010.txt", files.TradeFile());
    holdingFile_ = folder.Write("11DPA6UX.TXT", files.HoldingFile());
    folder.Write("BO.txt", files.BoList());
    folder.Write("ISIN.txt", files.IsinList());
    platform.programFolder = folder.Path();
    LoadLists();
  }

  // `shown` is the grid that shows what `act` does.
  template <class Act>
  void Time(const std::string& name, HWND shown, Act act) {
    ASSERT_FALSE(GetUpdateRect(shown, nullptr, FALSE));
    const auto begin = std::chrono::steady_clock::now();
    act();
    Pump();
    GdiFlush();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    ASSERT_FALSE(GetUpdateRect(shown, nullptr, FALSE));
    seconds_[name].push_back(took.count());
  }

  // Presses a button of the main window whose last box bears this title, if there is one.
  void TimeClick(const std::string& name, int button, const std::string& title,
                 const std::string& file = "") {
    platform.answers = {MessageAnswer::Yes};
    if (!file.empty()) platform.files = {file};
    platform.messages.clear();
    Time(name, Item(kFlxEntries), [&] { Click(button); });
    ASSERT_EQ(platform.messages.empty() ? "" : platform.messages.back().title, title);
  }

  void ImportAndFill() {
    ClearEntryGrid(Sheet());
    Pump();
    TimeClick("import", kBtnLoadFromBTFile, "", tradeFile_);
    TimeClick("autofill", kBtnAutoFields, "");
  }

  // Makes a row's first cell current at the top of the window, painted.
  void Go(FlexGrid& sheet, int row) {
    sheet.SetRow(row);
    sheet.SetCol(0);
    sheet.SetTopRow(row);
    Pump();
  }

  static void Send(HWND window, UINT message, WPARAM wParam) {
    PostMessageA(window, message, wParam, 0);
  }
  void HoldControl(bool held) {
    std::array<BYTE, 256> state = {};
    state[VK_CONTROL] = held ? 0x80 : 0;
    SetKeyboardState(state.data());
  }

  std::string tradeFile_, holdingFile_;
  std::map<std::string, std::vector<double>> seconds_;
};

// A busy broker's 20,000 trades, among as many accounts and holdings as five such days need.
TEST_F(WindowTimes, Day) {
  LayOut({20'000, 10'000, 2'000, 50'000, true});
  for (int round = 0; round < kTimes; ++round) {
    ImportAndFill();
    ASSERT_GT(Sheet().Rows(), 17'500);
    TimeClick("summarize", kBtnSummarize, "Confirm Summarize");
    TimeClick("check", kBtnCheck, "Checking Complete.", holdingFile_);
    TimeClick("save", kBtnSave, "File Saved.");
    TimeClick("reload", kBtnReload, "Load Confirmation");
    TimeClick("report", kBtnReport, "");
    ASSERT_EQ(platform.started.size(), static_cast<std::size_t>(round + 1));
  }
}

TEST_F(WindowTimes, Rows) {
  LayOut({1'120'000, 100'000, 2'000, 500'000});
  ImportAndFill();
  seconds_.clear();
  FlexGrid& sheet = Sheet();
  const HWND shown = Item(kFlxEntries);
  const int last = sheet.Rows() - 1;
  ASSERT_GE(last, 1'000'000);
  const int page = sheet.PageRows();
  Go(sheet, 1);
  for (int time = 1; time <= kTimes; ++time) {
    Time("page", shown, [&] { Send(shown, WM_VSCROLL, SB_PAGEDOWN); });
    ASSERT_EQ(sheet.TopRow(), 1 + time * page);
  }
  for (int time = 0; time < kTimes; ++time) {
    Go(sheet, 1);
    HoldControl(true);
    Time("jump", shown, [&] { Send(shown, WM_KEYDOWN, VK_END); });
    HoldControl(false);
    ASSERT_EQ(sheet.TopRow(), last - page + 1);
  }
  Go(sheet, last / 2);
  for (int time = 1; time <= kTimes; ++time) {
    Time("key", shown, [&] { Send(shown, WM_KEYDOWN, VK_DOWN); });
    ASSERT_EQ(sheet.Row(), last / 2 + time);
  }
  SendMessageA(Item(kCmbSearch), CB_SETCURSEL, 2, 0);  // BO Name
  SetWindowTextA(Item(kTxtSearch), "nobody of that name");
  for (int time = 0; time < kTimes; ++time) {
    TimeClick("search_miss", kBtnSearch, "Record not found.");
  }
}

TEST_F(WindowTimes, List) {
  LayOut({0, 100'000, 2'000, 0});
  CurrentListKind = kBoKind;
  frmList list;
  const auto on = [&](int id) -> Control& { return testing::ControlOf(list, id); };
  for (int time = 0; time < kTimes; ++time) {
    list.Unload();
    Pump();
    Time("list_open", Item(kFlxEntries), [&] { list.Show(); });
    ASSERT_FALSE(GetUpdateRect(on(frmListIds::kFlxList).Handle(), nullptr, FALSE));
  }
  FlexGrid& rows = static_cast<FlexGridControl&>(on(frmListIds::kFlxList)).Grid();
  const HWND shown = on(frmListIds::kFlxList).Handle();
  const int last = rows.Rows() - 1;
  ASSERT_EQ(last, 100'000);
  Control& item = on(frmListIds::kTxtItem);
  item.SetText(rows.Text(last, 3));
  item.SetFocus();
  for (int time = 0; time < kTimes; ++time) {
    Go(rows, 1);
    Time("list_search", shown, [] { testing::PressKey(VK_RETURN); });
    ASSERT_EQ(rows.Row(), last);
  }
  Go(rows, last / 2);
  for (int time = 1; time <= kTimes; ++time) {
    Time("list_key", shown, [&] { Send(shown, WM_KEYDOWN, VK_DOWN); });
    ASSERT_EQ(rows.Row(), last / 2 + time);
  }
  list.Unload();
}

}  // namespace
}  // namespace tallyrun::bench
