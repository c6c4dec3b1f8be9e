// The entry sheet with very many rows in its real window: what one page of scrolling, a jump, a key
// and a search do, and that a paint reads one page. Each test also prints how long that took, from
// the message until it is painted, as the median of its rounds: "figure NAME SECONDS". No time is
// asserted. TALLYRUN_SHEET_ROWS asks for another number of rows.
#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/MainWindowFixture.h"

namespace tallyrun {
namespace {

using namespace frmMainIds;

constexpr int kRounds = 31;

int WantedRows() {
  const char* const wanted = std::getenv("TALLYRUN_SHEET_ROWS");
  return wanted == nullptr ? 20'000 : std::atoi(wanted);
}

// A day's rows with every cell filled: ten for each account, every security once in 2,000.
void FillDay(FlexGrid& sheet, int rows) {
  sheet.SetRows(1);
  sheet.SetRows(rows + 1);
  constexpr int kSecurities = 2000;
  constexpr int kRowsPerAccount = 10;
  for (int row = 1; row <= rows; ++row) {
    // What an earlier row holds as well is taken from there: a text is looked up once.
    const auto fill = [&](int earlier, int col, const char* before, int number) {
      if (earlier < 1) {
        sheet.SetText(row, col, number == 0 ? before : before + std::to_string(number));
      } else {
        sheet.SetCell(row, col, sheet.Cell(earlier, col));
      }
    };
    fill(0, EntryColumn::kSerial, "", row);
    fill(0, EntryColumn::kInternalRef, "I410275", row);
    fill(row - 1, EntryColumn::kBrokerId, "410275", 0);
    fill(row - 1, EntryColumn::kClearingBoid, "7702310000000017", 0);
    fill(row - 1, EntryColumn::kTradeDate, "03-Jan-2010", 0);
    fill(row - 1, EntryColumn::kDeliveryDate, "05-Jan-2010", 0);
    const int account = 10'000'000 + row / kRowsPerAccount;
    const int sameAccount = row % kRowsPerAccount == 0 ? 0 : row - 1;
    fill(sameAccount, EntryColumn::kClientCode, "C", account);
    fill(sameAccount, EntryColumn::kBoId, "77023100", account);
    fill(sameAccount, EntryColumn::kBoName, "Client Number ", account);
    const int security = 100'000 + row % kSecurities;
    const int sameSecurity = row - kSecurities;
    fill(sameSecurity, EntryColumn::kScripId, "SCRIP", security);
    fill(sameSecurity, EntryColumn::kIsinCode, "KX0001", security);
    fill(sameSecurity, EntryColumn::kIsinName, "Security Number ", security);
    fill(sameSecurity, EntryColumn::kQuantity, "", 5 + row % kSecurities);
  }
}

class LargeSheetTest : public testing::MainWindowFixture {
 protected:
  LargeSheetTest() {
    FillDay(Sheet(), kRows);
    Go(1);
  }

  // Makes a row's first cell current at the top of the window, painted.
  void Go(int row) {
    Sheet().SetRow(row);
    Sheet().SetCol(0);
    Sheet().SetTopRow(row);
    Pump();
  }

  // Comes in as any message does; back when all that follows is handled and painted.
  void Send(UINT message, WPARAM wParam) {
    PostMessageA(Item(kFlxEntries), message, wParam, 0);
    Pump();
    GdiFlush();
  }
  void PressWithControl(int key) {
    std::array<BYTE, 256> state = {};
    state[VK_CONTROL] = 0x80;
    SetKeyboardState(state.data());
    Send(WM_KEYDOWN, static_cast<WPARAM>(key));
    state = {};
    SetKeyboardState(state.data());
  }

  template <class Act>
  void Time(Act act) {
    ASSERT_FALSE(GetUpdateRect(Item(kFlxEntries), nullptr, FALSE));
    const auto begin = std::chrono::steady_clock::now();
    act();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    ASSERT_FALSE(GetUpdateRect(Item(kFlxEntries), nullptr, FALSE));
    seconds_.push_back(took.count());
  }
  void PrintMedian(const char* name) {
    std::sort(seconds_.begin(), seconds_.end());
    std::printf("figure %s %.6f\n", name, seconds_.at(seconds_.size() / 2));
    std::fflush(stdout);
  }

  // The cells' texts as one paint of the whole grid draws them, row after row.
  std::vector<std::string> PaintedTexts() {
    const HDC record = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    SendMessageA(Item(kFlxEntries), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(record), PRF_CLIENT);
    const HENHMETAFILE painted = CloseEnhMetaFile(record);
    std::vector<std::string> texts;
    EnumEnhMetaFile(
        nullptr, painted,
        [](HDC, HANDLETABLE*, const ENHMETARECORD* each, int, LPARAM list) -> int {
          if (each->iType != EMR_EXTTEXTOUTW) return TRUE;
          const EMRTEXT& text = reinterpret_cast<const EMREXTTEXTOUTW*>(each)->emrtext;
          const auto* const begin =
              reinterpret_cast<const WCHAR*>(reinterpret_cast<const char*>(each) + text.offString);
          std::string narrow;
          for (DWORD at = 0; at < text.nChars; ++at) narrow += static_cast<char>(begin[at]);
          reinterpret_cast<std::vector<std::string>*>(list)->push_back(std::move(narrow));
          return TRUE;
        },
        &texts, nullptr);
    DeleteEnhMetaFile(painted);
    return texts;
  }
  // What is there to be seen: whole rows from the top one on, and one more in part.
  void ExpectOnePagePainted() {
    const FlexGrid& sheet = Sheet();
    const std::vector<std::string> texts = PaintedTexts();
    std::vector<std::string> seen;
    const int last = std::min(sheet.TopRow() + sheet.PageRows(), sheet.Rows() - 1);
    for (int row = sheet.TopRow(); row <= last; ++row) {
      for (int col = 0; col < sheet.Cols(); ++col) seen.push_back(sheet.Text(row, col));
    }
    EXPECT_EQ(texts, seen);
  }

  const int kRows = WantedRows();
  std::vector<double> seconds_;
};

TEST_F(LargeSheetTest, APageOfScrollingPaintsThePage) {
  const int page = Sheet().PageRows();
  for (int round = 1; round <= kRounds; ++round) {
    Time([&] { Send(WM_VSCROLL, SB_PAGEDOWN); });
    ASSERT_EQ(Sheet().TopRow(), 1 + round * page);
  }
  EXPECT_EQ(Sheet().Row(), 1);
  ExpectOnePagePainted();
  PrintMedian("window_page");
}

TEST_F(LargeSheetTest, AJumpToTheEndShowsTheLastPage) {
  for (int round = 0; round < kRounds; ++round) {
    Time([&] { PressWithControl(VK_END); });
    ASSERT_EQ(Sheet().Row(), kRows);
    ASSERT_EQ(Sheet().Col(), EntryColumn::kInternalRef);
    ASSERT_EQ(Sheet().TopRow(), kRows - Sheet().PageRows() + 1);
    if (round == 0) ExpectOnePagePainted();
    PressWithControl(VK_HOME);
    ASSERT_EQ(Sheet().TopRow(), 1);
  }
  PrintMedian("window_jump");
}

TEST_F(LargeSheetTest, AKeyMovesTheCurrentCellAndScrollsWhenItHasTo) {
  const int middle = kRows / 2;
  Go(middle);
  const int page = Sheet().PageRows();
  for (int round = 1; round <= kRounds; ++round) {
    Time([&] { Send(WM_KEYDOWN, VK_DOWN); });
    ASSERT_EQ(Sheet().Row(), middle + round);
    ASSERT_EQ(Sheet().TopRow(), middle + std::max(0, round - page + 1));
  }
  ExpectOnePagePainted();
  PrintMedian("window_key");
}

TEST_F(LargeSheetTest, ASearchThatMissesLeavesTheCurrentCell) {
  Go(kRows / 3);
  Sheet().SetCol(EntryColumn::kQuantity);
  Pump();
  SendMessageA(Item(kCmbSearch), CB_SETCURSEL, 2, 0);  // BO Name
  SetWindowTextA(Item(kTxtSearch), "nobody of that name");
  for (int round = 0; round < kRounds; ++round) {
    Time([&] { Click(kBtnSearch); });
    ASSERT_EQ(platform.TakeMessage().text, "No such record found.");
  }
  EXPECT_EQ(Sheet().Row(), kRows / 3);
  EXPECT_EQ(Sheet().Col(), EntryColumn::kQuantity);
  EXPECT_EQ(Sheet().TopRow(), kRows / 3);
  PrintMedian("window_search_miss");
}

}  // namespace
}  // namespace tallyrun
