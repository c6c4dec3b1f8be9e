#include "app/AutoFill.h"

#include <span>
#include <string>

#include "app/RowLookups.h"
#include "core/entry/EntryRow.h"
#include "core/entry/Settings.h"
#include "core/grid/ColumnFitter.h"
#include "core/text/ShortText.h"

namespace tallyrun {
namespace {

// Numbers the rows of one account alike, going down the sheet: the letter of the mode, the
// broker, the trade date and the running number of the account's group.
class InternalRefNumbering {
 public:
  explicit InternalRefNumbering(FlexGrid& grid)
      : grid_(grid),
        fitter_(grid),
        tradeDates_(grid.ColumnCells(EntryColumn::kTradeDate)),
        boIds_(grid.ColumnCells(EntryColumn::kBoId)),
        numbers_(grid.ColumnCells(EntryColumn::kInternalRef)),
        number_(InternalRefPrefix() + Settings.brokerId),
        dateBegin_(number_.size()) {}

  // A row without trade date or BO ID keeps what it has and opens no group.
  void FillRow(std::size_t row) {
    if (grid_.IsBlank(tradeDates_[row]) || grid_.IsBlank(boIds_[row])) return;
    if (row > 1 && boIds_[row] != boIds_[row - 1]) ++group_;
    // Neighbouring rows mostly share date and group, so the last number is kept.
    if (group_ != lastGroup_ || tradeDates_[row] != lastTradeDate_) {
      lastNumber_ = NumberFor(row);
      fitter_.Fit(EntryColumn::kInternalRef, lastNumber_);
    }
    numbers_[row] = lastNumber_;
  }

 private:
  CellValue NumberFor(std::size_t row) {
    if (lastGroup_ == 0 || tradeDates_[row] != lastTradeDate_) {
      CellScratch scratch;
      number_.resize(dateBegin_);
      number_ += FormatDdMmYy(ToDate(grid_.View(tradeDates_[row], scratch)));
      groupBegin_ = number_.size();
    }
    lastGroup_ = group_;
    lastTradeDate_ = tradeDates_[row];
    SetGroup(group_);
    // A sheet that is filled again mostly has this number already.
    CellScratch scratch;
    if (SameText(grid_.View(numbers_[row], scratch), number_)) return numbers_[row];
    const CellValue number = grid_.Intern(number_);
    // One that is most likely to come soon is looked for meanwhile.
    constexpr int kGroupsAhead = 8;
    SetGroup(group_ + kGroupsAhead);
    FlexGrid::Interning(grid_, number_);
    return number;
  }

  void SetGroup(int group) {
    number_.resize(groupBegin_);
    number_ += std::to_string(group);
  }

  FlexGrid& grid_;
  ColumnFitter fitter_;
  const std::span<const CellValue> tradeDates_;
  const std::span<const CellValue> boIds_;
  const std::span<CellValue> numbers_;
  std::string number_;  // the last one made
  const std::size_t dateBegin_;
  std::size_t groupBegin_ = 0;
  int group_ = 1;
  int lastGroup_ = 0;  // none yet
  CellValue lastTradeDate_ = CellValue::Empty;
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
  const auto serials = grid.ColumnCells(EntryColumn::kSerial);
  const auto deliveryDates = grid.ColumnCells(EntryColumn::kDeliveryDate);
  const auto brokerIds = grid.ColumnCells(EntryColumn::kBrokerId);
  const auto clearingBoids = grid.ColumnCells(EntryColumn::kClearingBoid);
  const auto clientCodes = grid.ColumnCells(EntryColumn::kClientCode);
  const auto boIds = grid.ColumnCells(EntryColumn::kBoId);
  const auto boNames = grid.ColumnCells(EntryColumn::kBoName);
  const auto scripIds = grid.ColumnCells(EntryColumn::kScripId);
  const auto isinCodes = grid.ColumnCells(EntryColumn::kIsinCode);
  const auto isinNames = grid.ColumnCells(EntryColumn::kIsinName);
  // In a sorted sheet the rows of an account stand together; what the next accounts lead to is
  // fetched on the way to them.
  constexpr std::size_t kNear = 64;
  constexpr std::size_t kFar = 128;
  const auto beginsAccount = [&clientCodes](std::size_t row) {
    return row < clientCodes.size() && clientCodes[row] != clientCodes[row - 1];
  };
  CodeAndName account;
  for (std::size_t row = 1; row < serials.size(); ++row) {
    if (beginsAccount(row + kFar)) lookups.PrefetchAccountOf(clientCodes[row + kFar]);
    if (beginsAccount(row + kNear)) lookups.PrefetchTextsOf(clientCodes[row + kNear]);
    serials[row] = fitted(EntryColumn::kSerial, NumberCell(static_cast<int>(row)));
    deliveryDates[row] = deliveryDate;
    brokerIds[row] = brokerId;
    clearingBoids[row] = clearingBoid;
    if (row == 1 || beginsAccount(row)) {
      account = lookups.AccountOf(clientCodes[row]);
      fitter.Fit(EntryColumn::kBoId, account.code);
      fitter.Fit(EntryColumn::kBoName, account.name);
    }
    boIds[row] = account.code;
    boNames[row] = account.name;
    const CodeAndName security = lookups.SecurityOf(scripIds[row]);
    isinCodes[row] = fitted(EntryColumn::kIsinCode, security.code);
    isinNames[row] = fitted(EntryColumn::kIsinName, security.name);
    numbering.FillRow(row);
  }
}

void FillInternalRefNos(FlexGrid& grid) {
  InternalRefNumbering numbering(grid);
  const auto rows = static_cast<std::size_t>(grid.Rows());
  for (std::size_t row = 1; row < rows; ++row) numbering.FillRow(row);
}

}  // namespace tallyrun
