// A large entry sheet in its real window: a paint draws one page, wherever that stands.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/MainWindowFixture.h"

namespace tallyrun {
namespace {

using namespace frmMainIds;

class LargeSheetTest : public testing::MainWindowFixture {
 protected:
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
};

TEST_F(LargeSheetTest, APaintDrawsOnePage) {
  FlexGrid& sheet = Sheet();
  sheet.SetRows(20'001);
  for (int row = 1; row < sheet.Rows(); ++row) {
    for (int col = 0; col < sheet.Cols(); ++col) {
      sheet.SetText(row, col, std::to_string(row) + "/" + std::to_string(col));
    }
  }
  const int page = sheet.PageRows();
  ASSERT_GT(page, 3);
  for (const int top : {1, 10'000, sheet.Rows() - page}) {
    sheet.SetTopRow(top);
    Pump();
    // What is there to be seen: whole rows from the top one on, and one more in part.
    std::vector<std::string> seen;
    for (int row = top; row <= std::min(top + page, sheet.Rows() - 1); ++row) {
      for (int col = 0; col < sheet.Cols(); ++col) seen.push_back(sheet.Text(row, col));
    }
    EXPECT_EQ(PaintedTexts(), seen) << top;
  }
}

}  // namespace
}  // namespace tallyrun
