#include "holding/TextMatcher.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace tallyrun {
namespace {

constexpr std::size_t kLong = sizeof(std::uint64_t);
constexpr std::size_t kMostEndingBytes = 2 * sizeof(std::uint64_t);

std::uint64_t NumberAt(const char* bytes) {
  std::uint64_t number = 0;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

// Whether the bits that all endings have, and those that none has, are so in `bits`, too.
bool HasCommonBits(std::uint64_t bits, std::uint64_t ofAll, std::uint64_t ofAny) {
  return (bits & (ofAll | ~ofAny)) == ofAll;
}

}  // namespace

TextMatcher::TextMatcher(const std::vector<std::string>& texts)
    : texts_(texts),
      endingBytes_(kMostEndingBytes),
      endings_(texts.size()),
      next_(texts.size(), kNone),
      slots_(std::bit_ceil(2 * texts.size() + 2), kNone),  // at most half of them are taken
      lastLines_(texts.size(), 0) {
  for (const std::string& text : texts) {
    if (text.size() >= kLong) endingBytes_ = std::min(endingBytes_, text.size());
  }
  for (std::uint32_t index = 0; index < texts.size(); ++index) {
    if (texts[index].size() < kLong) {
      shortTexts_.push_back(index);
    } else {
      AddLong(index);
    }
  }
}

TextMatcher::Ending TextMatcher::EndingOf(std::string_view text) const {
  const char* const end = text.data() + text.size();
  return {NumberAt(end - endingBytes_), NumberAt(end - sizeof(std::uint64_t))};
}

void TextMatcher::AddLong(std::uint32_t index) {
  const Ending ending = endings_[index] = EndingOf(texts_[index]);
  next_[index] = std::exchange(slots_[SlotOf(ending)], index);
  bitsOfAll_ = {bitsOfAll_.front & ending.front, bitsOfAll_.back & ending.back};
  bitsOfAny_ = {bitsOfAny_.front | ending.front, bitsOfAny_.back | ending.back};
}

std::size_t TextMatcher::SlotOf(const Ending& ending) const {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;  // 2^64 over the golden ratio
  const std::uint64_t hash = (ending.front * kFactor ^ ending.back) * kFactor;
  std::size_t slot = hash >> (64 - std::countr_zero(slots_.size()));
  while (slots_[slot] != kNone && endings_[slots_[slot]] != ending) {
    slot = (slot + 1) & (slots_.size() - 1);
  }
  return slot;
}

void TextMatcher::FindIn(std::string_view line, std::vector<std::uint32_t>& found) {
  found.clear();
  ++line_;
  for (const std::uint32_t index : shortTexts_) {
    if (line.find(texts_[index]) != line.npos) found.push_back(index);
  }
  FindLongIn(line, found);
  std::sort(found.begin(), found.end());
}

void TextMatcher::FindLongIn(std::string_view line, std::vector<std::uint32_t>& found) {
  const std::size_t bytes = endingBytes_;
  const std::uint64_t ofAll = bitsOfAll_.front;
  const std::uint64_t ofAny = bitsOfAny_.front;
  for (std::size_t end = bytes; end <= line.size(); ++end) {
    if (HasCommonBits(NumberAt(line.data() + end - bytes), ofAll, ofAny)) {
      FindAtEndOf(line.substr(0, end), found);
    }
  }
}

void TextMatcher::FindAtEndOf(std::string_view part, std::vector<std::uint32_t>& found) {
  const Ending ending = EndingOf(part);
  if (!HasCommonBits(ending.back, bitsOfAll_.back, bitsOfAny_.back)) return;
  for (std::uint32_t at = slots_[SlotOf(ending)]; at != kNone; at = next_[at]) {
    if (lastLines_[at] == line_ || !part.ends_with(texts_[at])) continue;
    lastLines_[at] = line_;
    found.push_back(at);
  }
}

}  // namespace tallyrun
