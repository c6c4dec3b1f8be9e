#include "app/TradeRows.h"

#include <span>

#include "core/Conversion.h"
#include "core/EntryRow.h"
#include "core/SeparatorScan.h"

namespace tallyrun {
namespace {

constexpr char kFieldMark = '|';

namespace TradeField {
constexpr std::uint32_t kScripId = 1;
constexpr std::uint32_t kSide = 3;
constexpr std::uint32_t kQuantity = 4;
constexpr std::uint32_t kClientCode = 6;
constexpr std::uint32_t kTradeDate = 10;
static_assert(kTradeDate < TradeLine::kFields);
}  // namespace TradeField

}  // namespace

void TradeRows::Take(const LineBlock& block) {
  const std::string_view text = block.text;
  TradeLine* line = &lines_[gathered_].line;
  line->Begin(text, 0);
  ForEachSeparator(text, kFieldMark, '\n', [&](std::size_t place) {
    if (text[place] == kFieldMark) {
      line->End(place);
    } else if (place > 0 && text[place - 1] == '\r') {
      line->End(place - 1);
      EndLine();
      line = &lines_[gathered_].line;
      line->Begin(text, place + 1);
    }
  });
  if (block.isLast) {
    line->End(text.size());
    EndLine();
  }
  FillGathered();
}

void TradeRows::EndLine() {
  const TradeLine& line = lines_[gathered_].line;
  if (line.Count() < 2) return;
  // A line too short to have a side ends the import behind the rows of the lines before it.
  if (!line.Has(TradeField::kSide)) FillGathered();
  if (line.Field(TradeField::kSide) != side_) return;
  if (++gathered_ == kGathered) FillGathered();
}

void TradeRows::FillGathered() {
  const std::span lines = std::span(lines_).first(gathered_);
  gathered_ = 0;
  for (Gathered& each : lines) {
    if (!each.line.Has(TradeField::kClientCode)) continue;
    each.clientCode = TextKey(each.line.Field(TradeField::kClientCode));
    accounts_.Prefetch(each.clientCode);
  }
  unknownClientCodes_.clear();
  for (Gathered& each : lines) {
    if (!each.line.Has(TradeField::kClientCode)) continue;
    each.account = accounts_.Find(each.clientCode);
    if (each.account != KnownCodes::kUnknown) continue;
    unknownClientCodes_.push_back(grid_.Intern(each.clientCode.text));
  }
  lookups_.PrepareAccountsOf(unknownClientCodes_);
  for (const Gathered& each : lines) FillRow(++filled_, each);
}

void TradeRows::FillRow(int row, const Gathered& gathered) {
  const TradeLine& line = gathered.line;
  const auto cells = grid_.RowCells(row);
  const auto put = [cells](int col, CellValue value) {
    cells[static_cast<std::size_t>(col)] = value;
  };
  const auto putAndFit = [&](int col, CellValue value) {
    put(col, value);
    fitter_.Fit(col, value);
  };
  putAndFit(EntryColumn::kSerial, NumberCell(row));
  const TextKey scripId(line.Field(TradeField::kScripId));
  const std::uint32_t place = securities_.Find(scripId);
  const bool isNew = place == KnownCodes::kUnknown;
  KnownCode security = isNew ? KnownCode{grid_.Intern(scripId.text), {}} : securities_.At(place);
  put(EntryColumn::kScripId, security.cell);
  if (isNew) fitter_.Fit(EntryColumn::kScripId, security.cell);
  putAndFit(EntryColumn::kQuantity, grid_.Intern(line.Field(TradeField::kQuantity)));
  line.Field(TradeField::kClientCode);
  const KnownCode account = AccountOf(gathered);
  put(EntryColumn::kClientCode, account.cell);
  put(EntryColumn::kBoId, account.answer.code);
  put(EntryColumn::kBoName, account.answer.name);
  putAndFit(EntryColumn::kTradeDate, TradeDate(line.Field(TradeField::kTradeDate)));
  if (isNew) {
    security.answer = lookups_.SecurityOf(security.cell);
    fitter_.Fit(EntryColumn::kIsinCode, security.answer.code);
    fitter_.Fit(EntryColumn::kIsinName, security.answer.name);
    securities_.Add(scripId, security);
  }
  put(EntryColumn::kIsinCode, security.answer.code);
  put(EntryColumn::kIsinName, security.answer.name);
}

KnownCode TradeRows::AccountOf(const Gathered& gathered) {
  if (gathered.account != KnownCodes::kUnknown) return accounts_.At(gathered.account);
  // One of the lines gathered with this one may have made it known.
  const std::uint32_t place = accounts_.Find(gathered.clientCode);
  if (place != KnownCodes::kUnknown) return accounts_.At(place);
  const CellValue cell = grid_.Intern(gathered.clientCode.text);
  const KnownCode account = {cell, lookups_.AccountOf(cell)};
  fitter_.Fit(EntryColumn::kClientCode, account.cell);
  fitter_.Fit(EntryColumn::kBoId, account.answer.code);
  fitter_.Fit(EntryColumn::kBoName, account.answer.name);
  accounts_.Add(gathered.clientCode, account);
  return account;
}

CellValue TradeRows::TradeDate(std::string_view text) {
  if (tradeDate_ == CellValue::Empty || text != tradeDateText_) {
    tradeDate_ = grid_.Intern(FormatDdMmmYyyy(ToDate(text)));
    tradeDateText_ = std::string(text);
  }
  return tradeDate_;
}

}  // namespace tallyrun
