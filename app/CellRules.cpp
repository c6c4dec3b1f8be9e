#include "app/CellRules.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "core/Platform.h"
#include "core/entry/BoIdFormat.h"
#include "core/entry/EntryRow.h"
#include "core/grid/ColumnWidths.h"
#include "core/masterlists/Lookups.h"

namespace tallyrun {
namespace {

void PutFitted(FlexGrid& grid, int row, int col, std::string_view text) {
  grid.SetText(row, col, text);
  FitColumnWidth(grid, row, col);
}

void Blank(FlexGrid& grid, int row, int col) { grid.SetCell(row, col, CellValue::Empty); }

bool ApplyBoIdRule(FlexGrid& grid, int row, std::string& text, bool freeEntry) {
  if (IsBoIdTooLong(text)) {
    TellBoIdTooLong();
    return false;
  }
  if (text.empty()) {
    Blank(grid, row, EntryColumn::kBoName);
    Blank(grid, row, EntryColumn::kClientCode);
    return true;
  }
  text = CompleteBoId(text);
  if (!freeEntry) {
    PutFitted(grid, row, EntryColumn::kBoName, LookupBoName(text));
    PutFitted(grid, row, EntryColumn::kClientCode, LookupClientCode(text));
  }
  return true;
}

void ApplyClientCodeRule(FlexGrid& grid, int row, const std::string& text) {
  if (text.empty()) {
    Blank(grid, row, EntryColumn::kBoId);
    Blank(grid, row, EntryColumn::kBoName);
    return;
  }
  const std::string boId = LookupBoIdByClientCode(text);
  PutFitted(grid, row, EntryColumn::kBoId, boId);
  PutFitted(grid, row, EntryColumn::kBoName, LookupBoName(boId));
}

void ApplyScripIdRule(FlexGrid& grid, int row, const std::string& text) {
  if (text.empty()) {
    Blank(grid, row, EntryColumn::kIsinCode);
    Blank(grid, row, EntryColumn::kIsinName);
    return;
  }
  const std::string isinCode = LookupIsinCodeByScrip(text);
  PutFitted(grid, row, EntryColumn::kIsinCode, isinCode);
  PutFitted(grid, row, EntryColumn::kIsinName, LookupIsinName(isinCode));
}

void ApplyIsinCodeRule(FlexGrid& grid, int row, std::string& text) {
  if (text.empty()) {
    Blank(grid, row, EntryColumn::kScripId);
    Blank(grid, row, EntryColumn::kIsinName);
    return;
  }
  PutFitted(grid, row, EntryColumn::kIsinName, LookupIsinName(text, &text));
  PutFitted(grid, row, EntryColumn::kScripId, LookupScripByIsin(text, &text));
}

bool ApplyQuantityRule(const std::string& text) {
  if (text.empty() || IsNumeric(text)) return true;
  Tell("Quantity must be numeric.", "Invalid Entry.", MessageIcon::Critical);
  return false;
}

// False when the column refuses the text.
bool ApplyColumnRule(FlexGrid& grid, int row, int col, std::string& text, bool freeEntry) {
  switch (col) {
    case EntryColumn::kBoId:
      return ApplyBoIdRule(grid, row, text, freeEntry);
    case EntryColumn::kQuantity:
      return ApplyQuantityRule(text);
    case EntryColumn::kClientCode:
      if (!freeEntry) ApplyClientCodeRule(grid, row, text);
      return true;
    case EntryColumn::kScripId:
      if (!freeEntry) ApplyScripIdRule(grid, row, text);
      return true;
    case EntryColumn::kIsinCode:
      if (!freeEntry) ApplyIsinCodeRule(grid, row, text);
      return true;
    default:
      return true;
  }
}

}  // namespace

bool IsEditable(int col, EditTrigger trigger, bool freeEntry) {
  if (freeEntry) {
    return trigger == EditTrigger::Enter ||
           (col >= EntryColumn::kTradeDate && col <= EntryColumn::kQuantity);
  }
  constexpr int kTyped[] = {EntryColumn::kTradeDate,  EntryColumn::kDeliveryDate,
                            EntryColumn::kClientCode, EntryColumn::kBoId,
                            EntryColumn::kScripId,    EntryColumn::kIsinCode,
                            EntryColumn::kQuantity};
  if (col == EntryColumn::kClearingBoid) return trigger == EditTrigger::Enter;
  return std::find(std::begin(kTyped), std::end(kTyped), col) != std::end(kTyped);
}

bool IsDateColumn(int col) {
  return col == EntryColumn::kTradeDate || col == EntryColumn::kDeliveryDate;
}

std::string EditorTextFor(const FlexGrid& grid, int row, int col) {
  std::string text = grid.Text(row, col);
  if (!Trim(text).empty()) return text;
  return row >= 2 ? grid.Text(row - 1, col) : std::string();
}

std::optional<Date> EditorDateFor(const FlexGrid& grid, int row, int col) {
  for (const int each : {row, row - 1}) {
    const std::string text = grid.Text(each, col);
    if (IsDate(text)) return ToDate(text);
  }
  return std::nullopt;
}

std::string TidiedCellText(int col, const std::string& typed) {
  std::string text(Trim(typed));
  if (col == EntryColumn::kQuantity) std::erase(text, ',');
  return text;
}

bool CommitCellText(FlexGrid& grid, int row, int col, std::string text, bool freeEntry) {
  if (!ApplyColumnRule(grid, row, col, text, freeEntry)) return false;
  PutFitted(grid, row, col, text);
  return true;
}

}  // namespace tallyrun
