// Places of a text where one of many long texts may end, or a line, gathered before they are looked
// at: the texts of a sheet don't fit in a processor's nearer caches, so that what has to be looked
// at is fetched for many places together.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "holding/LongTexts.h"

namespace tallyrun {

class GatheredPlaces {
 public:
  struct Place {
    std::size_t at;
    std::uint64_t anchor;  // of what ends here
    bool mayEnd;           // one of the texts
  };

  // Both must outlive this.
  GatheredPlaces(const LongTexts& wanted, std::string_view text) : wanted_(wanted), text_(text) {}

  bool AreEnough() const { return count_ == places_.size(); }

  void Add(std::size_t at, bool mayEnd) {
    Place& place = places_[count_++];
    place = {at, 0, mayEnd && at + 1 >= kAnchorBytes};
    if (!place.mayEnd) return;
    place.anchor = AnchorOf(text_.substr(0, at + 1), kAnchorBytes);
    wanted_.Prefetch(place.anchor);
  }

  // Calls see(place) for each in order, until it returns false. None is left then.
  template <class See>
  void Look(See&& see) {
    const auto places = std::span(places_).first(std::exchange(count_, 0));
    for (Place& place : places) {
      place.mayEnd = place.mayEnd && wanted_.MayHave(place.anchor);
      if (place.mayEnd) wanted_.PrefetchSlot(place.anchor);
    }
    for (const Place& place : places) {
      if (place.mayEnd) wanted_.PrefetchText(place.anchor);
    }
    for (const Place& place : places) {
      if (!see(place)) return;
    }
  }

 private:
  const LongTexts& wanted_;
  const std::string_view text_;
  std::array<Place, 64> places_;
  std::size_t count_ = 0;
};

}  // namespace tallyrun
