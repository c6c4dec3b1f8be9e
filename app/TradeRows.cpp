#include "app/TradeRows.h"

#include <algorithm>

#include "core/RuntimeError.h"
#include "core/entry/EntryRow.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

void Require(const TradeLine& line, std::size_t field) {
  if (line.fields <= field) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
}

}  // namespace

void TradeRows::Take(const TradeLines& lines) {
  const std::size_t count = lines.lines.size();
  for (std::size_t begin = 0; begin < count; begin += kTogether) {
    const std::size_t end = std::min(count, begin + kTogether);
    for (std::size_t next = end; next < std::min(count, end + kTogether); ++next) {
      accounts_.Prefetch(lines.lines[next].account);
    }
    FillTogether(lines, begin, end);
  }
}

void TradeRows::FillTogether(const TradeLines& lines, std::size_t begin, std::size_t end) {
  LookUpAccountsOf(lines, begin, end);
  std::array<Row, kTogether> rows{};
  std::size_t begun = 0;
  try {
    for (std::size_t at = begin; at < end; ++at) {
      // A line too short to have a side ends the import behind the rows of the lines before it.
      Require(lines.lines[at], TradeField::kSide);
      PutTogether(rows[begun++], lines.lines[at], lines.texts[at]);
    }
  } catch (...) {
    PutIntoGrid(std::span(rows).first(begun));
    throw;
  }
  PutIntoGrid(std::span(rows).first(begun));
}

void TradeRows::LookUpAccountsOf(const TradeLines& lines, std::size_t begin, std::size_t end) {
  unknownAccounts_.clear();
  for (std::size_t at = begin; at < end; ++at) {
    const int account = lines.lines[at].account;
    if (account == ListedAccounts::kUnlisted || accounts_.IsKnown(account)) continue;
    unknownAccounts_.push_back({account, lines.texts[at].clientCode});
  }
  if (!unknownAccounts_.empty()) accounts_.LookUp(unknownAccounts_);
}

// Field by field as the sheet takes them: what stands before one that is missing or wrong stays.
void TradeRows::PutTogether(Row& row, const TradeLine& line, const TradeTexts& texts) {
  const bool isKnown = line.security != 0 && line.security < securities_.size();
  if (!isKnown) BeginSecurity(line.security, texts.scripId);
  Security& security = securities_[line.security];
  row[EntryColumn::kScripId] = security.scripId;
  Require(line, TradeField::kQuantity);
  const CellValue quantity =
      line.quantity != CellValue::Empty ? line.quantity : grid_.Intern(texts.quantity);
  row[EntryColumn::kQuantity] = quantity;
  fitter_.Fit(EntryColumn::kQuantity, quantity);
  Require(line, TradeField::kClientCode);
  const AccountCells cells = line.account == ListedAccounts::kUnlisted
                                 ? accounts_.TakeUnlisted(texts.clientCode)
                                 : accounts_.Take(line.account);
  row[EntryColumn::kClientCode] = cells.clientCode;
  row[EntryColumn::kBoId] = cells.account.code;
  row[EntryColumn::kBoName] = cells.account.name;
  Require(line, TradeField::kTradeDate);
  if (!line.isDateAsBefore || tradeDate_ == CellValue::Empty) {
    tradeDate_ = grid_.Intern(FormatDdMmmYyyy(ToDate(texts.tradeDate)));
    fitter_.Fit(EntryColumn::kTradeDate, tradeDate_);
  }
  row[EntryColumn::kTradeDate] = tradeDate_;
  if (!isKnown) {
    security.isin = lookups_.SecurityOf(security.scripId);
    fitter_.Fit(EntryColumn::kIsinCode, security.isin.code);
    fitter_.Fit(EntryColumn::kIsinName, security.isin.name);
  }
  row[EntryColumn::kIsinCode] = security.isin.code;
  row[EntryColumn::kIsinName] = security.isin.name;
}

// Numbers come one after the other.
void TradeRows::BeginSecurity(std::uint32_t number, std::string_view scripId) {
  if (number == securities_.size()) securities_.emplace_back();
  Security& security = securities_[number];
  security.scripId = grid_.Intern(scripId);
  fitter_.Fit(EntryColumn::kScripId, security.scripId);
}

// A column at a time, so that what is written lies side by side.
void TradeRows::PutIntoGrid(std::span<const Row> rows) {
  if (rows.empty()) return;
  constexpr int kColumns[] = {EntryColumn::kTradeDate, EntryColumn::kClientCode,
                              EntryColumn::kBoId,      EntryColumn::kBoName,
                              EntryColumn::kScripId,   EntryColumn::kIsinCode,
                              EntryColumn::kIsinName,  EntryColumn::kQuantity};
  const auto first = static_cast<std::size_t>(filled_) + 1;
  for (const int col : kColumns) {
    const std::span<CellValue> cells = grid_.ColumnCells(col).subspan(first, rows.size());
    for (std::size_t at = 0; at < rows.size(); ++at) {
      cells[at] = rows[at][static_cast<std::size_t>(col)];
    }
  }
  const std::span<CellValue> serials = grid_.ColumnCells(EntryColumn::kSerial);
  for (std::size_t at = 0; at < rows.size(); ++at) serials[first + at] = NumberCell(++filled_);
  fitter_.Fit(EntryColumn::kSerial, NumberCell(filled_));
}

}  // namespace tallyrun
