#include "holding/TextMatcher.h"

#include <utility>

namespace tallyrun {

TextMatcher::TextMatcher(const std::vector<std::string_view>& texts) {
  std::vector<NumberedText> longTexts;
  std::vector<NumberedText> shortTexts;
  for (std::uint32_t number = 0; number < texts.size(); ++number) {
    if (texts[number].empty()) {
      empty_ = number;
    } else {
      (texts[number].size() >= kAnchorBytes ? longTexts : shortTexts)
          .push_back({texts[number], number});
    }
  }
  if (!longTexts.empty()) long_.emplace(longTexts);
  if (!shortTexts.empty()) short_.emplace(std::move(shortTexts));
}

void TextMatcher::FindIn(std::string_view text, std::size_t begin, std::size_t end,
                         std::vector<std::uint32_t>& found) const {
  if (long_) {
    long_->Filter().ForEachPlace(text, begin, end, [&](std::size_t place, bool mayEnd) {
      if (mayEnd && place + 1 - begin >= kAnchorBytes) {
        long_->FindAtEndOf(text.substr(begin, place + 1 - begin), found);
      }
      return true;
    });
  }
  FindShortIn(text.substr(begin, end - begin), found);
}

}  // namespace tallyrun
