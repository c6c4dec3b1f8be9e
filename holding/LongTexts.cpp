#include "holding/LongTexts.h"

#include <algorithm>
#include <bit>

#include "core/text/ShortText.h"

namespace tallyrun {

LongTexts::LongTexts(const std::vector<NumberedText>& texts)
    : bits_(texts.size()),
      slots_(std::bit_ceil(texts.size() * 2 + 1)),
      slotShift_(64 - std::countr_zero(slots_.size())) {
  for (const NumberedText& each : texts) bytes_ += each.text;
  texts_.reserve(texts.size());
  const char* begin = bytes_.data();
  for (const NumberedText& each : texts) {
    const auto size = static_cast<std::uint32_t>(each.text.size());
    const std::uint64_t anchor = AnchorOf({begin, size}, kAnchorBytes);
    texts_.push_back({anchor, begin, size, each.number});
    begin += size;
  }
  for (std::uint32_t text = 0; text < texts_.size(); ++text) Add(text);
}

std::size_t LongTexts::SlotOf(std::uint64_t anchor) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = HashAnchor(anchor) >> slotShift_;
  while (slots_[at] != kFree && TextIn(slots_[at]).anchor != anchor) at = (at + 1) & mask;
  return at;
}

void LongTexts::Add(std::uint32_t text) {
  const std::uint64_t anchor = texts_[text].anchor;
  filter_.Add(anchor);
  bits_.Set(anchor);
  std::uint32_t& slot = slots_[SlotOf(anchor)];
  if (slot == kFree) {
    slot = text + 1;
    return;
  }
  if ((slot & kEndAlike) == 0) AddEndingAlike(slot - 1);
  AddEndingAlike(text);
  slot |= kEndAlike;
}

void LongTexts::AddEndingAlike(std::uint32_t text) {
  const std::string_view view = texts_[text].View();
  alike_.Add(TextKey(view), text + 1);
  const auto place = std::lower_bound(lengths_.begin(), lengths_.end(), view.size());
  if (place == lengths_.end() || *place != view.size()) lengths_.insert(place, view.size());
}

void LongTexts::FindAnchored(std::uint64_t anchor, std::string_view ending,
                             std::vector<std::uint32_t>& found) const {
  const std::uint32_t slot = slots_[SlotOf(anchor)];
  if (slot == kFree) return;
  if ((slot & kEndAlike) != 0) return FindEndingAlike(ending, found);
  const Text& text = TextIn(slot);
  if (text.size > ending.size()) return;
  if (SameText(ending.substr(ending.size() - text.size), text.View())) found.push_back(text.number);
}

void LongTexts::FindEndingAlike(std::string_view ending, std::vector<std::uint32_t>& found) const {
  for (const std::size_t length : lengths_) {
    if (length > ending.size()) break;
    const std::uint32_t place =
        alike_.Find(TextKey(ending.substr(ending.size() - length)),
                    [this](std::uint32_t number) { return texts_[number - 1].View(); });
    if (place != TextTable::kNone) found.push_back(texts_[place - 1].number);
  }
}

}  // namespace tallyrun
