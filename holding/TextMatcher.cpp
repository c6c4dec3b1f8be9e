#include "holding/TextMatcher.h"

namespace tallyrun {

TextMatcher::TextMatcher(const std::vector<std::string_view>& texts) {
  std::vector<NumberedText> longTexts;
  std::vector<NumberedText> shortTexts;
  for (std::uint32_t number = 0; number < texts.size(); ++number) {
    (texts[number].size() >= kAnchorBytes ? longTexts : shortTexts)
        .push_back({texts[number], number});
  }
  if (!longTexts.empty()) long_.emplace(std::move(longTexts));
  if (!shortTexts.empty()) short_.emplace(shortTexts);
}

}  // namespace tallyrun
