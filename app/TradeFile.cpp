#include "app/TradeFile.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <vector>

#include "app/ConfirmLoading.h"
#include "app/RowLookups.h"
#include "core/ColumnFitter.h"
#include "core/GridRows.h"
#include "core/RuntimeError.h"
#include "core/SeparatorScan.h"
#include "core/modFileIO.h"

namespace tallyrun {
namespace {

namespace TradeField {
constexpr std::size_t kScripId = 1;
constexpr std::size_t kSide = 3;
constexpr std::size_t kQuantity = 4;
constexpr std::size_t kClientCode = 6;
constexpr std::size_t kTradeDate = 10;
}  // namespace TradeField

std::string_view FileNameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("\\/:");
  return separator == path.npos ? path : path.substr(separator + 1);
}

// As many fields as are looked at.
constexpr std::size_t kFields = TradeField::kTradeDate + 1;

struct TradeLine {
  std::array<std::string_view, kFields> fields;
  std::size_t count = 0;
  CellValue clientCode = CellValue::Empty;

  bool Has(std::size_t field) const { return field < count; }
  std::string_view Field(std::size_t field) const {
    if (!Has(field)) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
    return fields[field];
  }
};

// Fills the next row from every wanted line, top to bottom. Goes through the separators of the
// text in turn; a line's fields are the gaps between them.
//
// A hundred thousand accounts do not fit in a processor's nearer caches. So some lines are gathered
// before their rows are filled, and what the pool and the lookups will be asked for them is
// fetched for all of them at a time.
class TradeRows {
 public:
  TradeRows(FlexGrid& grid, std::string_view text, std::string_view side)
      : grid_(grid), lookups_(grid), fitter_(grid), text_(text), side_(side) {}

  int Filled() const { return filled_; }

  void Take() {
    if (text_.empty()) return;
    ForEachSeparator(text_, kFieldMark, '\n', [this](std::size_t place) {
      if (text_[place] == kFieldMark) {
        EndField(place);
      } else if (place > 0 && text_[place - 1] == '\r') {
        EndLine(place - 1);
        fieldBegin_ = place + 1;
      }
    });
    EndLine(text_.size());
    FillGathered();
  }

 private:
  static constexpr char kFieldMark = '|';
  static constexpr std::size_t kGathered = 16;

  void EndField(std::size_t place) {
    TradeLine& line = lines_[gathered_];
    if (line.count < kFields) {
      line.fields[line.count++] = text_.substr(fieldBegin_, place - fieldBegin_);
    }
    fieldBegin_ = place + 1;
  }

  void EndLine(std::size_t place) {
    EndField(place);
    const TradeLine& line = lines_[gathered_];
    if (line.count >= 2) {
      // A line too short to have a side ends the import behind the rows of the lines before it.
      if (!line.Has(TradeField::kSide)) FillGathered();
      if (line.Field(TradeField::kSide) == side_) ++gathered_;
    }
    if (gathered_ == kGathered) FillGathered();
    lines_[gathered_].count = 0;
  }

  void FillGathered() {
    const std::span lines = std::span(lines_).first(gathered_);
    for (const TradeLine& line : lines) {
      if (line.Has(TradeField::kClientCode)) grid_.Prefetch(line.fields[TradeField::kClientCode]);
    }
    for (TradeLine& line : lines) {
      if (!line.Has(TradeField::kClientCode)) continue;
      line.clientCode = grid_.Intern(line.fields[TradeField::kClientCode]);
      lookups_.PrefetchAccountOf(line.clientCode);
    }
    gathered_ = 0;
    for (const TradeLine& line : lines) FillRow(++filled_, line);
  }

  void FillRow(int row, const TradeLine& line) {
    const auto put = [this, cells = grid_.RowCells(row)](int col, CellValue value) {
      cells[static_cast<std::size_t>(col)] = value;
      fitter_.Fit(col, value);
    };
    put(EntryColumn::kSerial, NumberCell(row));
    const CellValue scripId = grid_.Intern(line.Field(TradeField::kScripId));
    put(EntryColumn::kScripId, scripId);
    put(EntryColumn::kQuantity, grid_.Intern(line.Field(TradeField::kQuantity)));
    line.Field(TradeField::kClientCode);
    put(EntryColumn::kClientCode, line.clientCode);
    const CodeAndName account = lookups_.AccountOf(line.clientCode);
    put(EntryColumn::kBoId, account.code);
    put(EntryColumn::kBoName, account.name);
    put(EntryColumn::kTradeDate, TradeDateOf(line.Field(TradeField::kTradeDate)));
    const CodeAndName security = lookups_.SecurityOf(scripId);
    put(EntryColumn::kIsinCode, security.code);
    put(EntryColumn::kIsinName, security.name);
  }

  // A file mostly holds the trades of one day, so the last date read is kept.
  CellValue TradeDateOf(std::string_view text) {
    if (tradeDate_ == CellValue::Empty || text != tradeDateText_) {
      tradeDate_ = grid_.Intern(FormatDdMmmYyyy(ToDate(text)));
      tradeDateText_ = text;
    }
    return tradeDate_;
  }

  FlexGrid& grid_;
  RowLookups lookups_;
  ColumnFitter fitter_;
  const std::string_view text_;
  const std::string_view side_;

  std::size_t fieldBegin_ = 0;
  std::array<TradeLine, kGathered> lines_;  // those gathered, then the one that is being read
  std::size_t gathered_ = 0;

  std::string_view tradeDateText_;
  CellValue tradeDate_ = CellValue::Empty;
  int filled_ = 0;
};

}  // namespace

std::optional<TradeFileName> ReadTradeFileName(const std::string& path) {
  const std::string name = ToLower(FileNameOf(path));
  const std::vector<std::string_view> pieces = Split(name, "_");
  if (pieces.empty()) return std::nullopt;
  const EntryModeTexts* const mode = pieces[0] == "payin"    ? &kPayIn
                                     : pieces[0] == "payout" ? &kPayOut
                                                             : nullptr;
  if (mode == nullptr) return std::nullopt;
  if (pieces.size() < 2) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
  return TradeFileName{*mode, ToDate(pieces[1].substr(0, pieces[1].find(".txt")))};
}

std::string TradeSideOf(const EntryModeTexts& mode) { return mode == kPayIn ? "S" : "B"; }

bool LoadTradeFile(FlexGrid& grid, const std::string& path, const std::string& side) {
  if (!IsGridEmpty(grid) && !ConfirmLoading()) return false;
  ClearEntryGrid(grid);
  const std::string text = ReadWholeFile(path);
  grid.SetRows(static_cast<int>(CountLineEnds(text)) + 2);
  TradeRows rows(grid, text, side);
  try {
    rows.Take();
  } catch (...) {
    // The rows filled so far stay, those that were never reached go.
    grid.SetRows(std::max(2, rows.Filled() + 1));
    throw;
  }
  grid.SetRows(rows.Filled() + 1);
  return true;
}

}  // namespace tallyrun
