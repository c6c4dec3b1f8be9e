// The lines of a trade file on their way to rows of the sheet: what a day's import spends its time
// with. Knows nothing of files, questions or modes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "app/ListedAccounts.h"
#include "app/RowLookups.h"
#include "app/TradeLines.h"
#include "core/entry/EntryRow.h"
#include "core/grid/ColumnFitter.h"
#include "core/grid/FlexGrid.h"

namespace tallyrun {

// Fills the next row from every line, top to bottom.
//
// A hundred thousand accounts do not fit in a processor's nearer caches, nor do the texts that the
// sheet takes for them. So some lines are filled together, and what has to be looked at for them is
// fetched for all at a time.
class TradeRows {
 public:
  explicit TradeRows(FlexGrid& grid)
      : grid_(grid),
        lookups_(grid),
        fitter_(grid),
        accounts_(grid, lookups_, fitter_),
        securities_(1) {}

  int Filled() const { return filled_; }

  // Takes the next lines of the file, for which the grid has rows. Raises SubscriptOutOfRange at a
  // line too short for its fields and TypeMismatch at a trade date that is none, once the rows of
  // the lines before it are filled.
  void Take(const TradeLines& lines);

 private:
  static constexpr std::size_t kTogether = 16;
  struct Security {
    CellValue scripId = CellValue::Empty;
    CodeAndName isin;
  };
  using Row = std::array<CellValue, EntryColumn::kCount>;

  void FillTogether(const TradeLines& lines, std::size_t begin, std::size_t end);
  void LookUpAccountsOf(const TradeLines& lines, std::size_t begin, std::size_t end);
  void PutTogether(Row& row, const TradeLine& line, const TradeTexts& texts);
  void BeginSecurity(std::uint32_t number, std::string_view scripId);
  void PutIntoGrid(std::span<const Row> rows);

  FlexGrid& grid_;
  RowLookups lookups_;
  ColumnFitter fitter_;
  ListedAccounts accounts_;
  std::vector<ListedAccounts::Unknown> unknownAccounts_;
  std::vector<Security> securities_;        // by number; 0 is the last one that has none
  CellValue tradeDate_ = CellValue::Empty;  // of the line before
  int filled_ = 0;
};

}  // namespace tallyrun
