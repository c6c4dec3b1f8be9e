#include "app/FillAutoFields.h"

#include <string>

#include "app/RowLookups.h"
#include "core/entry/EntryRow.h"
#include "core/entry/Settings.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/GridRows.h"

namespace tallyrun {
namespace {

// Numbers the rows of one account alike, going down the sheet: the letter of the mode, the
// broker, the trade date and the running number of the account's group.
class InternalRefNumbering {
 public:
  explicit InternalRefNumbering(FlexGrid& grid)
      : grid_(grid), prefix_(EntryMode.referenceLetter + Settings.brokerId) {}

  // A row without trade date or BO ID keeps what it has and opens no group.
  void FillRow(int row) {
    const CellValue tradeDate = grid_.Cell(row, EntryColumn::kTradeDate);
    const CellValue boId = grid_.Cell(row, EntryColumn::kBoId);
    if (Trim(grid_.Text(tradeDate)).empty() || Trim(grid_.Text(boId)).empty()) return;
    if (row > 1 && boId != grid_.Cell(row - 1, EntryColumn::kBoId)) ++group_;
    if (tradeDate != numberDate_ || group_ != numberGroup_) {
      number_ = grid_.Intern(prefix_ + FormatDdMmYy(ToDate(grid_.Text(tradeDate))) +
                             std::to_string(group_));
      numberDate_ = tradeDate;
      numberGroup_ = group_;
    }
    grid_.SetCell(row, EntryColumn::kInternalRef, number_);
  }

 private:
  FlexGrid& grid_;
  const std::string prefix_;
  int group_ = 1;
  // The last number, and what it was made of.
  CellValue number_ = CellValue::Empty;
  CellValue numberDate_ = CellValue::Empty;
  int numberGroup_ = 0;
};

void FillRows(FlexGrid& grid, const Date& deliveryDay) {
  const CellValue deliveryDate = grid.Intern(FormatDdMmmYyyy(deliveryDay));
  const CellValue brokerId = grid.Intern(Settings.brokerId);
  const CellValue clearingBoid = grid.Intern(Settings.clearingBoid);
  RowLookups lookups(grid);
  InternalRefNumbering numbering(grid);
  for (int row = 1; row < grid.Rows(); ++row) {
    grid.SetCell(row, EntryColumn::kDeliveryDate, deliveryDate);
    grid.SetCell(row, EntryColumn::kBrokerId, brokerId);
    grid.SetCell(row, EntryColumn::kClearingBoid, clearingBoid);
    const CodeAndName account = lookups.AccountOf(grid.Cell(row, EntryColumn::kClientCode));
    grid.SetCell(row, EntryColumn::kBoId, account.code);
    grid.SetCell(row, EntryColumn::kBoName, account.name);
    const CodeAndName security = lookups.SecurityOf(grid.Cell(row, EntryColumn::kScripId));
    grid.SetCell(row, EntryColumn::kIsinCode, security.code);
    grid.SetCell(row, EntryColumn::kIsinName, security.name);
    numbering.FillRow(row);
  }
}

}  // namespace

void FillAutoFields(FlexGrid& grid, const Date& deliveryDay) {
  RenumberRows(grid, 1);
  try {
    FillRows(grid, deliveryDay);
  } catch (...) {
    FitAllColumns(grid);
    throw;
  }
  FitAllColumns(grid);
}

void FillInternalRefNos(FlexGrid& grid) {
  InternalRefNumbering numbering(grid);
  for (int row = 1; row < grid.Rows(); ++row) numbering.FillRow(row);
  FitColumn(grid, EntryColumn::kInternalRef);
}

}  // namespace tallyrun
