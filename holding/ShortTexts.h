// Many texts of fewer than eight bytes, anchored on their last 4, 2 or 1: which of them a line
// contains. No account or security number is as short; a clerk's free entry may be.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/text/TextTable.h"
#include "holding/AnchorBits.h"
#include "holding/LongTexts.h"

namespace tallyrun {

class ShortTexts {
 public:
  // Distinct texts, none empty. They must outlive this.
  explicit ShortTexts(std::vector<NumberedText> texts);

  // Adds the numbers of the texts that `line` contains, as often as it does.
  void FindIn(std::string_view line, std::vector<std::uint32_t>& found) const;

 private:
  // The texts that share one size of anchor.
  struct Group {
    std::size_t anchorBytes;
    AnchorBits bits;
    std::vector<std::size_t> lengths;  // of the texts, each once, sorted
  };

  void FindEnding(const Group& group, std::string_view ending,
                  std::vector<std::uint32_t>& found) const;

  std::vector<NumberedText> texts_;
  TextTable places_;  // in texts_, from 1
  std::vector<Group> groups_;
};

}  // namespace tallyrun
