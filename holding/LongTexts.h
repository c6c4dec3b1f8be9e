// Many texts of eight bytes and more, each anchored on its last eight: which of them end at a
// given place. Nearly every place is settled by a bit table, and a true anchor leads to its text
// at once; only texts that end alike are looked up by each of their lengths.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/TextTable.h"
#include "holding/AnchorBits.h"
#include "holding/AnchorFilter.h"

namespace tallyrun {

struct NumberedText {
  std::string_view text;
  std::uint32_t number;
};

class LongTexts {
 public:
  // Distinct texts. They are copied side by side, in their order.
  explicit LongTexts(std::vector<NumberedText> texts);

  const AnchorFilter& Filter() const { return filter_; }

  // Adds the numbers of the texts that `ending` ends with; it has at least eight bytes.
  void FindAtEndOf(std::string_view ending, std::vector<std::uint32_t>& found) const {
    const std::uint64_t anchor = AnchorOf(ending, kAnchorBytes);
    if (bits_.Has(anchor)) FindAnchored(anchor, ending, found);
  }

 private:
  struct Slot {
    std::uint64_t anchor = 0;
    std::uint32_t text = kFree;  // index into texts_, or one of the marks
  };
  static constexpr std::uint32_t kFree = UINT32_MAX;
  static constexpr std::uint32_t kSeveral = UINT32_MAX - 1;

  void FindAnchored(std::uint64_t anchor, std::string_view ending,
                    std::vector<std::uint32_t>& found) const;
  void Add(std::uint32_t text);
  void AddToSeveral(std::uint32_t text);
  std::size_t SlotOf(std::uint64_t anchor) const;

  std::string bytes_;
  std::vector<NumberedText> texts_;  // views into bytes_
  AnchorFilter filter_;
  AnchorBits bits_;
  std::vector<Slot> slots_;           // open addressing
  std::vector<std::size_t> lengths_;  // of the texts that share an anchor, each once, sorted
  TextTable several_;                 // those texts, by index plus 1
};

}  // namespace tallyrun
