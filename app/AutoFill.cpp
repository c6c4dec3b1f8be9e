#include "app/AutoFill.h"

#include <span>
#include <string>

#include "app/RowLookups.h"
#include "core/ColumnFitter.h"
#include "core/EntryRow.h"
#include "core/Settings.h"

namespace tallyrun {
namespace {

// Numbers the rows of one account alike, going down the sheet: the letter of the mode, the
// broker, the trade date and the running number of the account's group.
class InternalRefNumbering {
 public:
  explicit InternalRefNumbering(FlexGrid& grid)
      : grid_(grid), fitter_(grid), prefix_(InternalRefPrefix() + Settings.brokerId) {}

  // A row without trade date or BO ID keeps what it has and opens no group.
  void FillRow(int row) {
    const auto cells = grid_.RowCells(row);
    const CellValue boId = cells[EntryColumn::kBoId];
    const CellValue tradeDate = cells[EntryColumn::kTradeDate];
    if (tradeDateBlank_.Of(tradeDate) || boIdBlank_.Of(boId)) return;
    if (row > 1 && boId != grid_.Cell(row - 1, EntryColumn::kBoId)) ++group_;
    CellValue& number = cells[EntryColumn::kInternalRef];
    number = NumberFor(tradeDate);
    fitter_.Fit(EntryColumn::kInternalRef, number);
  }

 private:
  // Whether a cell is blank; the last answer is kept, neighbouring rows mostly being alike.
  class Blankness {
   public:
    explicit Blankness(const FlexGrid& grid) : grid_(grid) {}

    bool Of(CellValue value) {
      if (value != last_) {
        CellScratch scratch;
        isBlank_ = Trim(grid_.View(value, scratch)).empty();
        last_ = value;
      }
      return isBlank_;
    }

   private:
    const FlexGrid& grid_;
    CellValue last_ = CellValue::Empty;
    bool isBlank_ = true;
  };

  // Neighbouring rows mostly share date and group, so the last number is kept.
  CellValue NumberFor(CellValue tradeDate) {
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
  ColumnFitter fitter_;
  Blankness tradeDateBlank_{grid_};
  Blankness boIdBlank_{grid_};
  const std::string prefix_;
  int group_ = 1;
  int lastGroup_ = 0;  // none yet
  CellValue lastTradeDate_ = CellValue::Empty;
  std::string dateText_;
  CellValue lastNumber_ = CellValue::Empty;
};

}  // namespace

void FillAutoFields(FlexGrid& grid, const Date& deliveryDay) {
  if (grid.Rows() < 2) return;
  RowLookups lookups(grid);
  ColumnFitter fitter(grid);
  InternalRefNumbering numbering(grid);
  const auto fitted = [&fitter](int col, CellValue value) {
    fitter.Fit(col, value);
    return value;
  };
  const CellValue deliveryDate =
      fitted(EntryColumn::kDeliveryDate, grid.Intern(FormatDdMmmYyyy(deliveryDay)));
  const CellValue brokerId = fitted(EntryColumn::kBrokerId, grid.Intern(Settings.brokerId));
  const CellValue clearingBoid =
      fitted(EntryColumn::kClearingBoid, grid.Intern(Settings.clearingBoid));
  // In a sorted sheet the rows of an account stand together.
  CellValue clientCode = grid.Cell(1, EntryColumn::kClientCode);
  CodeAndName account = lookups.AccountOf(clientCode);
  for (int row = 1; row < grid.Rows(); ++row) {
    const auto cells = grid.RowCells(row);
    cells[EntryColumn::kSerial] = fitted(EntryColumn::kSerial, NumberCell(row));
    cells[EntryColumn::kDeliveryDate] = deliveryDate;
    cells[EntryColumn::kBrokerId] = brokerId;
    cells[EntryColumn::kClearingBoid] = clearingBoid;
    if (row == 1 || cells[EntryColumn::kClientCode] != clientCode) {
      clientCode = cells[EntryColumn::kClientCode];
      account = lookups.AccountOf(clientCode);
      fitter.Fit(EntryColumn::kBoId, account.code);
      fitter.Fit(EntryColumn::kBoName, account.name);
    }
    cells[EntryColumn::kBoId] = account.code;
    cells[EntryColumn::kBoName] = account.name;
    const CodeAndName security = lookups.SecurityOf(cells[EntryColumn::kScripId]);
    cells[EntryColumn::kIsinCode] = fitted(EntryColumn::kIsinCode, security.code);
    cells[EntryColumn::kIsinName] = fitted(EntryColumn::kIsinName, security.name);
    numbering.FillRow(row);
  }
}

void FillInternalRefNos(FlexGrid& grid) {
  InternalRefNumbering numbering(grid);
  for (int row = 1; row < grid.Rows(); ++row) numbering.FillRow(row);
}

}  // namespace tallyrun
