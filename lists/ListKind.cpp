#include "lists/ListKind.h"

#include <span>

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

// What goes with a kind beside the texts that its name is part of.
struct Kind {
  std::span<const Column> columns;
  const char* updateCaption;
  const char* updateToolTip;
};

constexpr Column kBoColumns[] = {{"S/N"}, {"BO ID"}, {"BO Name", kBoNameMargin}, {"Client Code"}};
constexpr Column kIsinColumns[] = {
    {"S/N"}, {"ISIN Code"}, {"ISIN Name"}, {"Scrip ID"}, {"Scrip Code"}};
constexpr Kind kBo = {kBoColumns, "Send",
                      "Send the list of BOs to KTX. These BOs will be included in the holding "
                      "reports you receive from KTX."};
constexpr Kind kIsin = {kIsinColumns, "Receive", "Get the latest list of ISINs from KTX."};

const Kind& Named(const std::string& kind) { return kind == kBoKind ? kBo : kIsin; }

}  // namespace

std::string CurrentListKind;

std::string ListFileName(const std::string& kind) { return kind + ".txt"; }

std::string ListFilePath(const std::string& kind) {
  return Settings.backupLocation + ListFileName(kind);
}

ListTexts ListTextsOf(const std::string& kind) {
  const std::string title = "List of " + kind + "s";
  return {.title = title,
          .caption = CaptionFor(title),
          .selectCaption = "Select " + kind + " :",
          .gridToolTip = title +
                         ". Press INSERT key to add a new row or DELETE key to remove the "
                         "selected row(s).",
          .updateCaption = Named(kind).updateCaption,
          .updateToolTip = Named(kind).updateToolTip};
}

void LayOutListGrid(FlexGrid& grid, const std::string& kind) {
  const std::span<const Column> columns = Named(kind).columns;
  grid.SetRows(2);
  grid.SetCols(static_cast<int>(columns.size()));
  int col = 0;
  for (const auto& [caption, margin] : columns) {
    grid.SetText(0, col, caption);
    grid.SetColWidth(col++, grid.Measurer().WidthOf(caption) + margin);
  }
  ClearEntryGrid(grid);
  grid.SetCol(1);
}

}  // namespace tallyrun
