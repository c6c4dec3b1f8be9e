// Many texts of eight bytes and more, each anchored on its last eight: which of them end at a
// given place. Nearly every place is settled by a bit table, and a true anchor leads to its text
// at once; only texts that end alike are looked up by each of their lengths.
//
// The texts of a sheet are as many as do not fit into a processor's near caches, so a slot of the
// hash table is no more than a number, and all that is compared lies in the texts' order, which is
// mostly the order in which a file comes to them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/text/TextTable.h"
#include "holding/AnchorBits.h"
#include "holding/AnchorFilter.h"

namespace tallyrun {

struct NumberedText {
  std::string_view text;
  std::uint32_t number;
};

class LongTexts {
 public:
  // Distinct texts, fewer than 2^31. They are copied side by side, in their order.
  explicit LongTexts(const std::vector<NumberedText>& texts);

  const AnchorFilter& Filter() const { return filter_; }

  // Adds the numbers of the texts that `ending` ends with; it has at least eight bytes.
  void FindAtEndOf(std::string_view ending, std::vector<std::uint32_t>& found) const {
    const std::uint64_t anchor = AnchorOf(ending, kAnchorBytes);
    if (MayHave(anchor)) FindAnchored(anchor, ending, found);
  }

  // The same in steps, for whoever has many places to look at: each but the last fetches what the
  // next will look at. `anchor` is that of `ending`.
  void Prefetch(std::uint64_t anchor) const { bits_.Prefetch(anchor); }
  bool MayHave(std::uint64_t anchor) const { return bits_.Has(anchor); }
  void PrefetchSlot(std::uint64_t anchor) const {
    __builtin_prefetch(&slots_[HashAnchor(anchor) >> slotShift_]);
  }
  void PrefetchText(std::uint64_t anchor) const {
    const std::uint32_t slot = slots_[HashAnchor(anchor) >> slotShift_];
    if (slot != kFree) __builtin_prefetch(&TextIn(slot));
  }
  void FindAnchored(std::uint64_t anchor, std::string_view ending,
                    std::vector<std::uint32_t>& found) const;

 private:
  struct Text {
    std::uint64_t anchor;
    const char* begin;  // in bytes_
    std::uint32_t size;
    std::uint32_t number;

    std::string_view View() const { return {begin, size}; }
  };
  // A slot holds the index of a text plus 1, and a mark when others end like it.
  static constexpr std::uint32_t kFree = 0;
  static constexpr std::uint32_t kEndAlike = 0x80000000u;
  const Text& TextIn(std::uint32_t slot) const { return texts_[(slot & ~kEndAlike) - 1]; }

  void FindEndingAlike(std::string_view ending, std::vector<std::uint32_t>& found) const;
  void Add(std::uint32_t text);
  void AddEndingAlike(std::uint32_t text);
  std::size_t SlotOf(std::uint64_t anchor) const;

  std::string bytes_;
  std::vector<Text> texts_;
  AnchorFilter filter_;
  AnchorBits bits_;
  std::vector<std::uint32_t> slots_;  // open addressing
  int slotShift_;                     // leaves as many bits of a hash as tell the slots
  std::vector<std::size_t> lengths_;  // of the texts that end alike, each once, sorted
  TextTable alike_;                   // those texts, by index plus 1
};

}  // namespace tallyrun
