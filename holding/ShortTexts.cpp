#include "holding/ShortTexts.h"

#include <algorithm>
#include <utility>

namespace tallyrun {
namespace {

std::size_t AnchorBytesOf(std::string_view text) {
  return text.size() >= 4 ? 4 : text.size() >= 2 ? 2 : 1;
}

}  // namespace

ShortTexts::ShortTexts(std::vector<NumberedText> texts) : texts_(std::move(texts)) {
  for (std::uint32_t place = 0; place < texts_.size(); ++place) {
    const std::string_view text = texts_[place].text;
    places_.Add(TextKey(text), place + 1);
    const std::size_t anchorBytes = AnchorBytesOf(text);
    auto group = std::find_if(groups_.begin(), groups_.end(), [anchorBytes](const Group& each) {
      return each.anchorBytes == anchorBytes;
    });
    if (group == groups_.end()) {
      group = groups_.insert(group, {anchorBytes, AnchorBits(texts_.size()), {}});
    }
    group->bits.Set(AnchorOf(text, anchorBytes));
    const auto length = std::lower_bound(group->lengths.begin(), group->lengths.end(), text.size());
    if (length == group->lengths.end() || *length != text.size()) {
      group->lengths.insert(length, text.size());
    }
  }
}

void ShortTexts::FindIn(std::string_view line, std::vector<std::uint32_t>& found) const {
  for (const Group& group : groups_) {
    for (std::size_t end = group.anchorBytes; end <= line.size(); ++end) {
      const std::string_view ending = line.substr(0, end);
      if (group.bits.Has(AnchorOf(ending, group.anchorBytes))) FindEnding(group, ending, found);
    }
  }
}

void ShortTexts::FindEnding(const Group& group, std::string_view ending,
                            std::vector<std::uint32_t>& found) const {
  for (const std::size_t length : group.lengths) {
    if (length > ending.size()) break;
    const std::uint32_t place =
        places_.Find(TextKey(ending.substr(ending.size() - length)),
                     [this](std::uint32_t number) { return texts_[number - 1].text; });
    if (place != TextTable::kNone) found.push_back(texts_[place - 1].number);
  }
}

}  // namespace tallyrun
