// Finds which of many texts occur in each line of a long text, in one pass over it however many
// there are.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "holding/LongTexts.h"
#include "holding/ShortTexts.h"

namespace tallyrun {

class TextMatcher {
 public:
  // The texts to look for, known by their index; distinct, none empty. They must outlive the
  // matcher.
  explicit TextMatcher(const std::vector<std::string_view>& texts);

  // Cuts `text` into lines at CR LF and calls visit(line, found) for each in order until it
  // returns false. `found` holds the index of every text that the line contains; of a text that
  // occurs several times perhaps as often.
  template <class Visit>
  void ForEachLine(std::string_view text, Visit&& visit) const;

 private:
  std::optional<LongTexts> long_;
  std::optional<ShortTexts> short_;
};

template <class Visit>
void TextMatcher::ForEachLine(std::string_view text, Visit&& visit) const {
  std::vector<std::uint32_t> found;
  std::size_t lineBegin = 0;
  bool goesOn = true;
  const auto endLine = [&](std::size_t end) {
    const std::string_view line = text.substr(lineBegin, end - lineBegin);
    if (short_) short_->FindIn(line, found);
    goesOn = visit(line, found);
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
    long_->Filter().ForEachPlace(text, see);
  } else {
    for (std::size_t place = text.find('\n'); place != text.npos && see(place, false);) {
      place = text.find('\n', place + 1);
    }
  }
  if (goesOn) endLine(text.size());
}

}  // namespace tallyrun
