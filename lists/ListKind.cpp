#include "lists/ListKind.h"

#include <vector>

#include "core/Application.h"
#include "core/entry/Settings.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/GridRows.h"

namespace tallyrun {
namespace {

// Added to the width of the BO Name caption, in twips: account names are long.
constexpr int kBoNameMargin = 2000;

struct Column {
  const char* caption;
  int margin = kCellMargin;  // twips
};

const std::vector<Column>& ColumnsOf(const std::string& kind) {
  static const std::vector<Column> boColumns = {
      {"S/N"}, {"BO ID"}, {"BO Name", kBoNameMargin}, {"Client Code"}};
  static const std::vector<Column> isinColumns = {
      {"S/N"}, {"ISIN Code"}, {"ISIN Name"}, {"Scrip ID"}, {"Scrip Code"}};
  return kind == kBoKind ? boColumns : isinColumns;
}

}  // namespace

std::string CurrentListKind;

std::string ListFileNameOf(const std::string& kind) { return kind + ".txt"; }

std::string ListFilePathOf(const std::string& kind) {
  return Settings.backupLocation + ListFileNameOf(kind);
}

ListTexts ListTextsOf(const std::string& kind) {
  ListTexts texts;
  texts.title = "List of " + kind + "s";
  texts.caption = CaptionFor(texts.title);
  texts.selectCaption = "Select " + kind + " :";
  texts.gridToolTip =
      texts.title +
      ". Press INSERT key to add a new row or DELETE key to remove the selected row(s).";
  if (kind == kBoKind) {
    texts.updateCaption = "Send";
    texts.updateToolTip =
        "Send the list of BOs to KTX. These BOs will be included in the holding reports you "
        "receive from KTX.";
  } else {
    texts.updateCaption = "Receive";
    texts.updateToolTip = "Get the latest list of ISINs from KTX.";
  }
  return texts;
}

void LayOutListGrid(FlexGrid& grid, const std::string& kind) {
  const std::vector<Column>& columns = ColumnsOf(kind);
  grid.SetRows(2);
  grid.SetCols(static_cast<int>(columns.size()));
  for (int col = 0; col < grid.Cols(); ++col) {
    const Column& column = columns[static_cast<std::size_t>(col)];
    grid.SetText(0, col, column.caption);
    grid.SetColWidth(col, grid.Measurer().WidthOf(column.caption) + column.margin);
  }
  ClearEntryGrid(grid);
  grid.SetCol(1);
}

}  // namespace tallyrun
