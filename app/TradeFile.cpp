#include "app/TradeFile.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "app/ConfirmLoading.h"
#include "app/RowLookups.h"
#include "core/GridRows.h"
#include "core/RuntimeError.h"
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

// Fills the next row from every wanted line, top to bottom.
class TradeRows {
 public:
  TradeRows(FlexGrid& grid, std::string_view side) : grid_(grid), lookups_(grid), side_(side) {}

  int Filled() const { return filled_; }

  void Take(std::string_view line) {
    fields_.clear();
    for (std::size_t start = 0;;) {
      const std::size_t end = line.find('|', start);
      fields_.push_back(line.substr(start, end == line.npos ? end : end - start));
      if (end == line.npos) break;
      start = end + 1;
    }
    if (fields_.size() < 2 || Field(TradeField::kSide) != side_) return;
    FillRow(++filled_);
  }

 private:
  std::string_view Field(std::size_t field) const {
    if (field >= fields_.size()) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
    return fields_[field];
  }

  void Put(int row, int col, CellValue value) {
    grid_.SetCell(row, col, value);
    FitColumnWidth(grid_, row, col);
  }

  void FillRow(int row) {
    Put(row, EntryColumn::kSerial, grid_.Intern(std::to_string(row)));
    const CellValue scripId = grid_.Intern(Field(TradeField::kScripId));
    Put(row, EntryColumn::kScripId, scripId);
    Put(row, EntryColumn::kQuantity, grid_.Intern(Field(TradeField::kQuantity)));
    const CellValue clientCode = grid_.Intern(Field(TradeField::kClientCode));
    Put(row, EntryColumn::kClientCode, clientCode);
    const CodeAndName account = lookups_.AccountOf(clientCode);
    Put(row, EntryColumn::kBoId, account.code);
    Put(row, EntryColumn::kBoName, account.name);
    Put(row, EntryColumn::kTradeDate, TradeDateOf(Field(TradeField::kTradeDate)));
    const CodeAndName security = lookups_.SecurityOf(scripId);
    Put(row, EntryColumn::kIsinCode, security.code);
    Put(row, EntryColumn::kIsinName, security.name);
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
  const std::string_view side_;
  std::vector<std::string_view> fields_;
  std::string_view tradeDateText_;
  CellValue tradeDate_ = CellValue::Empty;
  int filled_ = 0;
};

void TakeLines(TradeRows& rows, const std::vector<std::string_view>& lines) {
  for (const std::string_view line : lines) rows.Take(line);
}

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
  const std::vector<std::string_view> lines = Split(text, kLineEnd);
  grid.SetRows(static_cast<int>(lines.size()) + 1);
  TradeRows rows(grid, side);
  try {
    TakeLines(rows, lines);
  } catch (...) {
    // The rows filled so far stay, those that were never reached go.
    grid.SetRows(std::max(2, rows.Filled() + 1));
    throw;
  }
  grid.SetRows(rows.Filled() + 1);
  return true;
}

}  // namespace tallyrun
