// The depository's holding report, read block by block: its subject, its holding lines and a
// line's balance. Knows nothing of the sheet.
#pragma once

#include <optional>
#include <string_view>

#include "core/files/LineBlocks.h"

namespace tallyrun {

class HoldingFile {
 public:
  // Of the whole file, which must outlive this. Lines end in CR LF.
  explicit HoldingFile(LineBlocks& blocks) : blocks_(blocks), first_(blocks.Next(buffer_)) {}

  // The text of line 1 between the first "Report for " and the " :" that follows; good until
  // holdings are read. Raises SubscriptOutOfRange when the line has no "Report for ".
  std::string_view Subject() const;

  // The next lines from line 9 on; nothing when there are no more. A block that is not the last
  // ends behind a CR LF; the last is one line more, perhaps an empty one.
  std::optional<LineBlock> NextHoldings();

  // The last field of a holding line, as it stands in the file; fields end at each single blank.
  static std::string_view BalanceOf(std::string_view line);

 private:
  static constexpr int kHeaderLines = 8;

  void SkipHeader(LineBlock& block);

  LineBlocks& blocks_;
  LineBlocks::Buffer buffer_;
  LineBlock first_;
  bool isBegun_ = false;
  bool isOver_ = false;
  int headerLinesLeft_ = kHeaderLines;
};

}  // namespace tallyrun
