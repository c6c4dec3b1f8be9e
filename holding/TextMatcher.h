// Finds which of many texts occur in each line of a long text, in one pass over it however many
// there are.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "core/LineBlocks.h"
#include "holding/LongTexts.h"
#include "holding/ShortTexts.h"

namespace tallyrun {

class TextMatcher {
 public:
  // The texts to look for, known by their index; distinct. They must outlive the matcher.
  explicit TextMatcher(const std::vector<std::string_view>& texts);

  // Calls visit(begin, end, found) in order for each of the block's lines, which lies from `begin`
  // to `end` of its text without its CR LF, until it returns false. `found` holds the index of
  // every text that the line contains, as every line does the empty one; of a text that occurs
  // several times perhaps as often. The visitor may change it.
  template <class Visit>
  void ForEachLine(const LineBlock& block, Visit&& visit) const;

  // Adds to `found` the same for one line that lies in `text` from `begin` to `end`.
  void FindIn(std::string_view text, std::size_t begin, std::size_t end,
              std::vector<std::uint32_t>& found) const;

 private:
  void FindShortIn(std::string_view line, std::vector<std::uint32_t>& found) const {
    if (short_) short_->FindIn(line, found);
    if (empty_) found.push_back(*empty_);
  }

  std::optional<std::uint32_t> empty_;  // the number of the empty text
  std::optional<LongTexts> long_;
  std::optional<ShortTexts> short_;
};

template <class Visit>
void TextMatcher::ForEachLine(const LineBlock& block, Visit&& visit) const {
  const std::string_view text = block.text;
  std::vector<std::uint32_t> found;
  std::size_t lineBegin = 0;
  bool goesOn = true;
  const auto endLine = [&](std::size_t end) {
    FindShortIn(text.substr(lineBegin, end - lineBegin), found);
    goesOn = visit(lineBegin, end, found);
    found.clear();
  };
  const auto see = [&](std::size_t place, bool mayEnd) {
    if (text[place] == '\n' && place > lineBegin && text[place - 1] == '\r') {
      endLine(place - 1);
      lineBegin = place + 1;
      return goesOn;
    }
    // A line's own CR belongs to no text in it.
    const bool isLineEnd = text.substr(place, 2) == "\r\n";
    if (mayEnd && !isLineEnd && place + 1 - lineBegin >= kAnchorBytes) {
      long_->FindAtEndOf(text.substr(lineBegin, place + 1 - lineBegin), found);
    }
    return goesOn;
  };
  if (long_) {
    long_->Filter().ForEachPlace(text, 0, text.size(), see);
  } else {
    for (std::size_t place = text.find('\n'); place != text.npos && see(place, false);) {
      place = text.find('\n', place + 1);
    }
  }
  if (goesOn && block.isLast) endLine(text.size());
}

}  // namespace tallyrun
