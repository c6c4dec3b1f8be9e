#include "app/TradeFile.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "app/ConfirmLoading.h"
#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/GridRows.h"
#include "core/masterlists/Lookups.h"
#include "core/text/PerText.h"
#include "core/text/Split.h"

namespace tallyrun {
namespace {

// Which fields of a line are looked at, counted from 0.
namespace TradeField {
constexpr std::size_t kScripId = 1;
constexpr std::size_t kSide = 3;
constexpr std::size_t kQuantity = 4;
constexpr std::size_t kClientCode = 6;
constexpr std::size_t kTradeDate = 10;
constexpr std::size_t kCount = 11;
}  // namespace TradeField

std::string_view FileNameOf(std::string_view path) {
  return path.substr(path.find_last_of("\\/:") + 1);
}

using TradeFields = FirstPieces<TradeField::kCount>;

std::string_view FieldAt(const TradeFields& fields, std::size_t number) {
  if (number >= fields.Count()) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  return fields[number];
}

// Fills the sheet's rows from a file's lines, top to bottom.
class TradeRows {
 public:
  explicit TradeRows(FlexGrid& grid) : grid_(grid) {}

  int Count() const { return count_; }

  // Fills the next row field by field: what stands before one that is missing or wrong stays.
  void Add(const TradeFields& fields) {
    ++count_;
    const Security& security = SecurityOf(FieldAt(fields, TradeField::kScripId));
    Put(EntryColumn::kScripId, security.scripId);
    Put(EntryColumn::kQuantity, grid_.Intern(FieldAt(fields, TradeField::kQuantity)));
    const Account& account = AccountOf(FieldAt(fields, TradeField::kClientCode));
    Put(EntryColumn::kClientCode, account.clientCode);
    Put(EntryColumn::kBoId, account.boId);
    Put(EntryColumn::kBoName, account.boName);
    Put(EntryColumn::kTradeDate, TradeDateOf(FieldAt(fields, TradeField::kTradeDate)));
    Put(EntryColumn::kIsinCode, security.isinCode);
    Put(EntryColumn::kIsinName, security.isinName);
  }

 private:
  struct Account {
    CellValue clientCode;
    CellValue boId;
    CellValue boName;
  };
  struct Security {
    CellValue scripId;
    CellValue isinCode;
    CellValue isinName;
  };

  void Put(int col, CellValue value) { grid_.SetCell(count_, col, value); }

  const Account& AccountOf(std::string_view clientCode) {
    return accounts_.Of(clientCode, [this](std::string_view code) {
      const std::string boId = LookupBoIdByClientCode(code);
      return Account{grid_.Intern(code), grid_.Intern(boId), grid_.Intern(LookupBoName(boId))};
    });
  }

  const Security& SecurityOf(std::string_view scripId) {
    return securities_.Of(scripId, [this](std::string_view scrip) {
      const std::string isinCode = LookupIsinCodeByScrip(scrip);
      return Security{grid_.Intern(scrip), grid_.Intern(isinCode),
                      grid_.Intern(LookupIsinName(isinCode))};
    });
  }

  CellValue TradeDateOf(std::string_view text) {
    return tradeDates_.Of(text, [this](std::string_view date) {
      return grid_.Intern(FormatDdMmmYyyy(ToDate(date)));
    });
  }

  FlexGrid& grid_;
  PerText<Account> accounts_;
  PerText<Security> securities_;
  PerText<CellValue> tradeDates_;
  int count_ = 0;
};

void AddTrades(std::string_view text, std::string_view side, TradeRows& rows) {
  for (const std::string_view line : Pieces(text, kLineEnd)) {
    const TradeFields fields(line, '|');
    if (fields.Count() >= 2 && FieldAt(fields, TradeField::kSide) == side) rows.Add(fields);
  }
}

// The rows that were filled stay, those that were never reached go; of none the blank row stays.
void EndRows(FlexGrid& grid, const TradeRows& rows) {
  grid.SetRows(std::max(2, rows.Count() + 1));
  RenumberRows(grid, 1);
  FitAllColumns(grid);
}

}  // namespace

std::optional<TradeFileName> ReadTradeFileName(const std::string& path) {
  const std::string name = ToLower(FileNameOf(path));
  const std::vector<std::string_view> pieces = Split(name, "_");
  if (pieces.size() < 2 || (pieces[0] != "payin" && pieces[0] != "payout")) return std::nullopt;
  return TradeFileName{pieces[0] == "payin" ? kPayIn : kPayOut,
                       ToDate(pieces[1].substr(0, pieces[1].find(".txt")))};
}

bool LoadTradeFile(FlexGrid& grid, const std::string& path, const std::string& side) {
  if (!IsGridEmpty(grid) && !ConfirmLoading()) return false;
  ClearEntryGrid(grid);
  FillFromTrades(ReadWholeFile(path), side, grid);
  return true;
}

void FillFromTrades(std::string_view text, std::string_view side, FlexGrid& grid) {
  grid.SetRows(std::max(2, static_cast<int>(CountPieces(text, kLineEnd)) + 1));
  TradeRows rows(grid);
  try {
    AddTrades(text, side, rows);
  } catch (...) {
    EndRows(grid, rows);
    throw;
  }
  EndRows(grid, rows);
}

}  // namespace tallyrun
