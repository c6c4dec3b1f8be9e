// Says where in a long text the last eight bytes of one of many wanted texts may end, without
// looking at any place alone: sixteen places at a step are held against the least and the greatest
// byte that the wanted texts have at each of the eight. Account and security numbers end in
// digits, so names and blanks are passed over at once. Line feeds are told as well, since whoever
// looks for texts in lines has to see both in turn.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tallyrun {

inline constexpr std::size_t kAnchorBytes = 8;

class AnchorFilter {
 public:
  // The wanted texts' anchors are given one by one, all before anything is asked.
  AnchorFilter() { least_.fill(UINT8_MAX); }
  void Add(std::uint64_t anchor);

  // Calls visit(place, mayEnd) in order for every byte of `text` from `begin` to `end` that is a
  // line feed or with which an anchor may end (`mayEnd`), until it returns false. An anchor may
  // reach back before `begin`.
  template <class Visit>
  void ForEachPlace(std::string_view text, std::size_t begin, std::size_t end,
                    Visit&& visit) const {
    for (; begin < end; begin += kBlock) {
      const Masks masks = MasksAt(text, begin, end);
      for (std::uint64_t left = masks.mayEnd | masks.lineFeeds; left != 0; left &= left - 1) {
        const int bit = std::countr_zero(left);
        if (!visit(begin + static_cast<std::size_t>(bit), (masks.mayEnd >> bit & 1) != 0)) return;
      }
    }
  }

 private:
  static constexpr std::size_t kBlock = 64;
  static constexpr std::size_t kBefore = kAnchorBytes - 1;  // bytes of an anchor before its last

  // A bit for each byte of a block.
  struct Masks {
    std::uint64_t mayEnd = 0;
    std::uint64_t lineFeeds = 0;
  };
  // Of a block that has kBefore bytes before it.
  Masks MasksOf(const char* block) const;
  Masks MasksAt(std::string_view text, std::size_t begin, std::size_t end) const;

  // By byte of the anchor: the least one wanted, and how much more the greatest is.
  std::array<std::uint8_t, kAnchorBytes> least_;
  std::array<std::uint8_t, kAnchorBytes> span_{};
  bool isEmpty_ = true;
};

}  // namespace tallyrun
