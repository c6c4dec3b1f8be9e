// The depository's holding report, given as its whole text: its subject, its holding lines and a
// line's balance. Knows nothing of the sheet and opens no file.
#pragma once

#include <optional>
#include <string_view>

namespace tallyrun {

class HoldingFile {
 public:
  // Lines end in CR LF. Everything given back is a view into `report`.
  explicit HoldingFile(std::string_view report);

  // The text of line 1 between the first "Report for " and the " :" that follows. Raises
  // SubscriptOutOfRange when the line has no "Report for ".
  std::string_view Subject() const;

  // The next line from line 9 on; nothing when there are no more. A report that ends in CR LF has
  // an empty line behind it.
  std::optional<std::string_view> NextHolding() { return NextLine(); }

  // The last field of a holding line, as it stands there; fields end at each single blank.
  static std::string_view BalanceOf(std::string_view holding);

 private:
  std::optional<std::string_view> NextLine();

  std::optional<std::string_view> rest_;  // behind the lines that were taken
  std::string_view firstLine_;
};

}  // namespace tallyrun
