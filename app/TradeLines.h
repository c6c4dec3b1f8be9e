// The lines of a trade file that the sheet takes, block by block, with what can be said of each
// from the file and the BO list alone. So they can be read on another thread while the rows of the
// block before are filled; and what has to go from one processor to the other is little.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/files/LineBlocks.h"
#include "core/grid/CellTable.h"
#include "core/masterlists/RecordIndex.h"
#include "core/text/TextTable.h"

namespace tallyrun {

// Which fields of a line are looked at, counted from 0.
namespace TradeField {
inline constexpr std::size_t kScripId = 1;
inline constexpr std::size_t kSide = 3;
inline constexpr std::size_t kQuantity = 4;
inline constexpr std::size_t kClientCode = 6;
inline constexpr std::size_t kTradeDate = 10;
inline constexpr std::size_t kCount = 11;
}  // namespace TradeField

struct TradeLine {
  int account = 0;                        // record of the BO list, 0 when that hasn't the code
  std::uint32_t security = 0;             // by its scrip ID: see TradeReader
  CellValue quantity = CellValue::Empty;  // a plain number; Empty for any other text
  std::uint8_t fields = 0;                // as far as they are looked at
  bool isDateAsBefore = false;            // the trade date is written as in the line before
};

// A field that the line is too short for is empty.
struct TradeTexts {
  std::string_view scripId;
  std::string_view quantity;
  std::string_view clientCode;
  std::string_view tradeDate;
};

struct TradeLines {
  std::vector<TradeLine> lines;
  std::vector<TradeTexts> texts;  // of each line
  bool isLast = false;
  LineBlocks::Buffer buffer;  // what the texts lie in

  bool IsLast() const { return isLast; }
};

class TradeReader {
 public:
  // Takes lines of `side`, and finds accounts in the index of the BO list by client code; both must
  // outlive this.
  TradeReader(std::string_view side, const EqualityIndex& accounts)
      : side_(side), accounts_(accounts) {}

  // The lines of the file's next block take the place of what stood in `lines`. A line too short to
  // have a side is the last: nothing behind it is to be taken.
  //
  // Scrip IDs are numbered from 1 as they come; a long one has no number (0).
  void Read(LineBlocks& blocks, TradeLines& lines);

 private:
  void FindAccounts(TradeLines& lines) const;
  std::uint32_t NumberOf(std::string_view scripId);

  const std::string_view side_;
  const EqualityIndex& accounts_;
  TextTable securities_;
  std::uint32_t securityCount_ = 0;
  std::string tradeDate_;  // of the line before
};

}  // namespace tallyrun
