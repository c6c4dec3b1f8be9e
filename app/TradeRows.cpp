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
  if (!SameText(line.Field(TradeField::kSide), side_)) return;
  if (++gathered_ == kGathered) FillGathered();
}

void TradeRows::FillGathered() {
  const std::span<Gathered> lines = std::span(lines_).first(gathered_);
  gathered_ = 0;
  FindAccountsOf(lines);
  std::array<Row, kGathered> rows{};
  std::size_t begun = 0;
  try {
    for (const Gathered& each : lines) PutTogether(rows[begun++], each);
  } catch (...) {
    PutIntoGrid(std::span(rows).first(begun));
    throw;
  }
  PutIntoGrid(std::span(rows).first(begun));
}

void TradeRows::FindAccountsOf(std::span<Gathered> lines) {
  for (Gathered& each : lines) {
    if (!each.line.Has(TradeField::kClientCode)) continue;
    each.clientCode = TextKey(each.line.Field(TradeField::kClientCode));
    accounts_.Prefetch(each.clientCode);
  }
  unknownAccounts_.clear();
  for (Gathered& each : lines) {
    if (!each.line.Has(TradeField::kClientCode)) continue;
    each.record = accounts_.Find(each.clientCode);
    if (each.record == ListedAccounts::kUnlisted || accounts_.IsKnown(each.record)) continue;
    unknownAccounts_.push_back({each.record, each.clientCode.text});
  }
  accounts_.LookUp(unknownAccounts_);
}

// Field by field as the sheet takes them: what stands before one that is missing or wrong stays.
void TradeRows::PutTogether(Row& row, const Gathered& gathered) {
  const TradeLine& line = gathered.line;
  const TextKey scripId(line.Field(TradeField::kScripId));
  const std::uint32_t place = securities_.Find(scripId);
  const bool isNew = place == KnownCodes::kUnknown;
  KnownCode security = isNew ? KnownCode{grid_.Intern(scripId.text), {}} : securities_.At(place);
  row[EntryColumn::kScripId] = security.cell;
  if (isNew) fitter_.Fit(EntryColumn::kScripId, security.cell);
  const CellValue quantity = grid_.Intern(line.Field(TradeField::kQuantity));
  row[EntryColumn::kQuantity] = quantity;
  fitter_.Fit(EntryColumn::kQuantity, quantity);
  line.Field(TradeField::kClientCode);
  const AccountCells cells = gathered.record == ListedAccounts::kUnlisted
                                 ? accounts_.TakeUnlisted(gathered.clientCode.text)
                                 : accounts_.Take(gathered.record);
  row[EntryColumn::kClientCode] = cells.clientCode;
  row[EntryColumn::kBoId] = cells.account.code;
  row[EntryColumn::kBoName] = cells.account.name;
  row[EntryColumn::kTradeDate] = TradeDate(line.Field(TradeField::kTradeDate));
  if (isNew) {
    security.answer = lookups_.SecurityOf(security.cell);
    fitter_.Fit(EntryColumn::kIsinCode, security.answer.code);
    fitter_.Fit(EntryColumn::kIsinName, security.answer.name);
    securities_.Add(scripId, security);
  }
  row[EntryColumn::kIsinCode] = security.answer.code;
  row[EntryColumn::kIsinName] = security.answer.name;
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

CellValue TradeRows::TradeDate(std::string_view text) {
  if (tradeDate_ == CellValue::Empty || !SameText(text, tradeDateText_)) {
    tradeDate_ = grid_.Intern(FormatDdMmmYyyy(ToDate(text)));
    fitter_.Fit(EntryColumn::kTradeDate, tradeDate_);
    tradeDateText_ = std::string(text);
  }
  return tradeDate_;
}

}  // namespace tallyrun
