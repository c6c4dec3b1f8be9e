// Finds which of many texts occur in each line of a long text, in one pass over it however many
// there are.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "core/files/LineBlocks.h"
#include "holding/GatheredPlaces.h"
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
  const auto endsLine = [&](std::size_t place) {
    return text[place] == '\n' && place > lineBegin && text[place - 1] == '\r';
  };
  if (long_) {
    GatheredPlaces places(*long_, text);
    const auto see = [&](const GatheredPlaces::Place& place) {
      const std::size_t end = place.at + 1;
      if (endsLine(place.at)) {
        endLine(place.at - 1);
        lineBegin = end;
      } else if (place.mayEnd && end - lineBegin >= kAnchorBytes &&
                 text.substr(place.at, 2) != "\r\n") {  // a line's own CR belongs to no text in it
        long_->FindAnchored(place.anchor, text.substr(lineBegin, end - lineBegin), found);
      }
      return goesOn;
    };
    long_->Filter().ForEachPlace(text, 0, text.size(), [&](std::size_t place, bool mayEnd) {
      places.Add(place, mayEnd);
      if (places.AreEnough()) places.Look(see);
      return goesOn;
    });
    if (goesOn) places.Look(see);
  } else {
    for (std::size_t place = text.find('\n'); place != text.npos && goesOn;
         place = text.find('\n', place + 1)) {
      if (!endsLine(place)) continue;
      endLine(place - 1);
      lineBegin = place + 1;
    }
  }
  if (goesOn && block.isLast) endLine(text.size());
}

}  // namespace tallyrun
