#include "holding/LongTexts.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace tallyrun {
namespace {

std::string Joined(const std::vector<NumberedText>& texts) {
  std::string bytes;
  for (const NumberedText& each : texts) bytes += each.text;
  return bytes;
}

std::vector<NumberedText> PutInto(std::string_view bytes, std::vector<NumberedText> texts) {
  for (NumberedText& each : texts) {
    each.text = bytes.substr(0, each.text.size());
    bytes.remove_prefix(each.text.size());
  }
  return texts;
}

}  // namespace

LongTexts::LongTexts(std::vector<NumberedText> texts)
    : bytes_(Joined(texts)),
      texts_(PutInto(bytes_, std::move(texts))),
      bits_(texts_.size()),
      slots_(std::bit_ceil(texts_.size() * 2 + 1)) {
  for (std::uint32_t text = 0; text < texts_.size(); ++text) Add(text);
}

std::size_t LongTexts::SlotOf(std::uint64_t anchor) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = HashAnchor(anchor) >> 20 & mask;
  while (slots_[at].text != kFree && slots_[at].anchor != anchor) at = (at + 1) & mask;
  return at;
}

void LongTexts::Add(std::uint32_t text) {
  const std::uint64_t anchor = AnchorOf(texts_[text].text, kAnchorBytes);
  const std::string_view whole = texts_[text].text;
  filter_.Add(whole.substr(whole.size() - kAnchorBytes));
  bits_.Set(anchor);
  Slot& slot = slots_[SlotOf(anchor)];
  if (slot.text == kFree) {
    slot = {anchor, text};
    return;
  }
  if (slot.text != kSeveral) AddToSeveral(slot.text);
  AddToSeveral(text);
  slot.text = kSeveral;
}

void LongTexts::AddToSeveral(std::uint32_t text) {
  several_.Add(TextKey(texts_[text].text), text + 1);
  const std::size_t length = texts_[text].text.size();
  const auto place = std::lower_bound(lengths_.begin(), lengths_.end(), length);
  if (place == lengths_.end() || *place != length) lengths_.insert(place, length);
}

void LongTexts::FindAnchored(std::uint64_t anchor, std::string_view ending,
                             std::vector<std::uint32_t>& found) const {
  const std::uint32_t text = slots_[SlotOf(anchor)].text;
  if (text == kFree) return;
  if (text != kSeveral) {
    if (ending.ends_with(texts_[text].text)) found.push_back(texts_[text].number);
    return;
  }
  for (const std::size_t length : lengths_) {
    if (length > ending.size()) break;
    const std::uint32_t place =
        several_.Find(TextKey(ending.substr(ending.size() - length)),
                      [this](std::uint32_t number) { return texts_[number - 1].text; });
    if (place != TextTable::kNone) found.push_back(texts_[place - 1].number);
  }
}

}  // namespace tallyrun
