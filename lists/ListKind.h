// The two master lists that the list window can show: their files, their texts and the layout of
// their grid. Everything that names a list is made from its kind, "BO" or "ISIN".
#pragma once

#include <string>

#include "core/grid/FlexGrid.h"

namespace tallyrun {

inline constexpr char kBoKind[] = "BO";
inline constexpr char kIsinKind[] = "ISIN";

// The list that the list window shows. Set by whoever opens the window, and by its list chooser.
extern std::string CurrentListKind;

std::string ListFileName(const std::string& kind);  // "BO.txt"
// The list file in the working folder.
std::string ListFilePath(const std::string& kind);

// What the list window shows for a kind.
struct ListTexts {
  std::string title;          // "List of BOs"
  std::string caption;        // of the window
  std::string selectCaption;  // before the search box
  std::string gridToolTip;
  std::string updateCaption;  // of the button that exchanges the list with KTX
  std::string updateToolTip;
};
ListTexts ListTextsOf(const std::string& kind);

// The captions and widths of the kind's columns, and one blank row numbered 1, current at column 1.
void LayOutListGrid(FlexGrid& grid, const std::string& kind);

}  // namespace tallyrun
