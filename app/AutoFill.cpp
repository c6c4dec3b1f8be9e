#include "app/AutoFill.h"

#include <string>

#include "app/RowLookups.h"
#include "core/EntryRow.h"
#include "core/GridRows.h"
#include "core/Settings.h"

namespace tallyrun {
namespace {

void Put(FlexGrid& grid, int row, int col, CellValue value) {
  grid.SetCell(row, col, value);
  FitColumnWidth(grid, row, col);
}

// Numbers the rows of one account alike, going down the sheet: the letter of the mode, the
// broker, the trade date and the running number of the account's group.
class InternalRefNumbering {
 public:
  explicit InternalRefNumbering(FlexGrid& grid)
      : grid_(grid), prefix_(InternalRefPrefix() + Settings.brokerId) {}

  // A row without trade date or BO ID keeps what it has and opens no group.
  void FillRow(int row) {
    if (IsBlank(row, EntryColumn::kTradeDate) || IsBlank(row, EntryColumn::kBoId)) return;
    if (row > 1 && grid_.Cell(row, EntryColumn::kBoId) != grid_.Cell(row - 1, EntryColumn::kBoId)) {
      ++group_;
    }
    Put(grid_, row, EntryColumn::kInternalRef, NumberFor(row));
  }

 private:
  bool IsBlank(int row, int col) const {
    CellScratch scratch;
    return Trim(grid_.View(row, col, scratch)).empty();
  }

  // Neighbouring rows mostly share date and group, so the last number is kept.
  CellValue NumberFor(int row) {
    const CellValue tradeDate = grid_.Cell(row, EntryColumn::kTradeDate);
    if (group_ != lastGroup_ || tradeDate != lastTradeDate_) {
      if (lastGroup_ == 0 || tradeDate != lastTradeDate_) {
        CellScratch scratch;
        dateText_ = FormatDdMmYy(ToDate(grid_.View(tradeDate, scratch)));
      }
      lastNumber_ = grid_.Intern(prefix_ + dateText_ + std::to_string(group_));
      lastGroup_ = group_;
      lastTradeDate_ = tradeDate;
    }
    return lastNumber_;
  }

  FlexGrid& grid_;
  const std::string prefix_;
  int group_ = 1;
  int lastGroup_ = 0;  // none yet
  CellValue lastTradeDate_ = CellValue::Empty;
  std::string dateText_;
  CellValue lastNumber_ = CellValue::Empty;
};

}  // namespace

void FillAutoFields(FlexGrid& grid, const Date& deliveryDay) {
  RowLookups lookups(grid);
  InternalRefNumbering numbering(grid);
  const CellValue deliveryDate = grid.Intern(FormatDdMmmYyyy(deliveryDay));
  const CellValue brokerId = grid.Intern(Settings.brokerId);
  const CellValue clearingBoid = grid.Intern(Settings.clearingBoid);
  for (int row = 1; row < grid.Rows(); ++row) {
    Put(grid, row, EntryColumn::kSerial, grid.Intern(std::to_string(row)));
    Put(grid, row, EntryColumn::kDeliveryDate, deliveryDate);
    Put(grid, row, EntryColumn::kBrokerId, brokerId);
    Put(grid, row, EntryColumn::kClearingBoid, clearingBoid);
    const CodeAndName account = lookups.AccountOf(grid.Cell(row, EntryColumn::kClientCode));
    Put(grid, row, EntryColumn::kBoId, account.code);
    Put(grid, row, EntryColumn::kBoName, account.name);
    const CodeAndName security = lookups.SecurityOf(grid.Cell(row, EntryColumn::kScripId));
    Put(grid, row, EntryColumn::kIsinCode, security.code);
    Put(grid, row, EntryColumn::kIsinName, security.name);
    numbering.FillRow(row);
  }
}

void FillInternalRefNos(FlexGrid& grid) {
  InternalRefNumbering numbering(grid);
  for (int row = 1; row < grid.Rows(); ++row) numbering.FillRow(row);
}

}  // namespace tallyrun
