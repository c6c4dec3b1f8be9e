#include "app/TradeFile.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "app/ConfirmLoading.h"
#include "app/TradeLines.h"
#include "app/TradeRows.h"
#include "core/ReadAhead.h"
#include "core/RuntimeError.h"
#include "core/files/LineBlocks.h"
#include "core/files/modFileIO.h"
#include "core/grid/GridRows.h"
#include "core/masterlists/Lists.h"

namespace tallyrun {
namespace {

std::string_view FileNameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("\\/:");
  return separator == path.npos ? path : path.substr(separator + 1);
}

void TakeAll(FlexGrid& grid, LineBlocks& blocks, const std::string& side, TradeRows& rows) {
  TradeReader reader(side, BoList.IndexWithoutCr(BoField::kClientCode));
  ReadAhead<TradeLines> parts([&](TradeLines& lines) { reader.Read(blocks, lines); });
  grid.ReserveRows(blocks.LinesToExpect() + 1);
  while (const TradeLines* const part = parts.Next()) {
    const int needed = 1 + rows.Filled() + static_cast<int>(part->lines.size());
    grid.SetRows(std::max(grid.Rows(), needed));
    rows.Take(*part);
  }
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
  LineBlocks blocks(path);
  TradeRows rows(grid);
  try {
    TakeAll(grid, blocks, side, rows);
  } catch (...) {
    // The rows filled so far stay, those that were never reached go.
    grid.SetRows(std::max(2, rows.Filled() + 1));
    throw;
  }
  grid.SetRows(rows.Filled() + 1);
  return true;
}

}  // namespace tallyrun
