// The lines of a trade file on their way to rows of the sheet: what a day's import spends its time
// with. Knows nothing of files, questions or modes.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/KnownCodes.h"
#include "app/ListedAccounts.h"
#include "app/RowLookups.h"
#include "core/ColumnFitter.h"
#include "core/EntryRow.h"
#include "core/FlexGrid.h"
#include "core/LineBlocks.h"
#include "core/RuntimeError.h"

namespace tallyrun {

// One line by the places of its separators; fields count from 0.
class TradeLine {
 public:
  // As many fields as are looked at.
  static constexpr std::uint32_t kFields = 11;

  // Of a line that begins at `begin` of `block`.
  void Begin(std::string_view block, std::size_t begin) {
    block_ = block.data();
    begin_ = static_cast<std::uint32_t>(begin);
    count_ = 0;
  }
  // The next field ends here.
  void End(std::size_t place) {
    ends_[count_] = static_cast<std::uint32_t>(place);
    count_ += count_ < kFields ? 1 : 0;
  }

  std::uint32_t Count() const { return count_; }
  bool Has(std::uint32_t field) const { return field < count_; }
  // Raises SubscriptOutOfRange when the line is too short.
  std::string_view Field(std::uint32_t field) const {
    if (!Has(field)) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
    const std::uint32_t begin = field == 0 ? begin_ : ends_[field - 1] + 1;
    return {block_ + begin, ends_[field] - begin};
  }

 private:
  const char* block_ = nullptr;
  std::uint32_t begin_ = 0;
  std::uint32_t count_ = 0;
  std::array<std::uint32_t, kFields + 1> ends_{};  // one more, for ends that are not looked at
};

// Fills the next row from every line of the wanted side, top to bottom.
//
// A hundred thousand accounts do not fit in a processor's nearer caches. So some lines are gathered
// before their rows are filled, and what has to be looked at for them is fetched for all at a time.
class TradeRows {
 public:
  // `side` must outlive this.
  TradeRows(FlexGrid& grid, std::string_view side)
      : grid_(grid),
        lookups_(grid),
        fitter_(grid),
        side_(side),
        accounts_(grid, lookups_, fitter_) {}

  int Filled() const { return filled_; }

  // Takes the next lines of the file, for which the grid has rows. Raises SubscriptOutOfRange at a
  // line too short for its fields and TypeMismatch at a trade date that is none, once the rows of
  // the lines before it are filled.
  void Take(const LineBlock& block);

 private:
  static constexpr std::size_t kGathered = 16;

  struct Gathered {
    TradeLine line;
    TextKey clientCode;
    int record = ListedAccounts::kUnlisted;
  };
  using Row = std::array<CellValue, EntryColumn::kCount>;

  void EndLine();
  void FillGathered();
  void FindAccountsOf(std::span<Gathered> lines);
  void PutTogether(Row& row, const Gathered& gathered);
  void PutIntoGrid(std::span<const Row> rows);
  CellValue TradeDate(std::string_view text);

  FlexGrid& grid_;
  RowLookups lookups_;
  ColumnFitter fitter_;
  const std::string_view side_;

  std::array<Gathered, kGathered> lines_;  // those gathered, then the one that is being read
  std::size_t gathered_ = 0;

  ListedAccounts accounts_;
  std::vector<ListedAccounts::Unknown> unknownAccounts_;
  KnownCodes securities_;
  // A file mostly holds the trades of one day, so the last date read is kept.
  std::string tradeDateText_;
  CellValue tradeDate_ = CellValue::Empty;
  int filled_ = 0;
};

}  // namespace tallyrun
