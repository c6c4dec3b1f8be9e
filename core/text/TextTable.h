// Distinct texts, each stored once and known by a number: the grid's cell texts and the indexes of
// the master lists. Texts are never taken out.
//
// An open hash table of the texts' numbers. Beside a number stands what tells its text from others:
// the length and either all bytes, when the text is as short as most codes are, or a hash of them.
// So a short text is found with one look at memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string_view>
#include <vector>

namespace tallyrun {

class TextTable {
 public:
  TextTable();

  // The text's number, counted from 0 in the order in which the texts came; a new one is stored.
  // Raises what a failed allocation raises, and the table is then as it was.
  std::uint32_t Intern(std::string_view text);
  // The number of a text that is stored.
  std::optional<std::uint32_t> Find(std::string_view text) const;
  // Good for as long as the table lives.
  std::string_view Text(std::uint32_t number) const { return texts_[number]; }
  std::size_t Size() const { return texts_.size(); }

 private:
  struct Slot {
    std::uint64_t word = 0;             // all bytes of a short text, or a hash of them
    std::uint32_t length = 0;           // bytes of the text
    std::uint32_t number = UINT32_MAX;  // which marks a free slot
    bool IsFree() const { return number == UINT32_MAX; }
  };

  // The text's slot, but for its number.
  static Slot SlotFor(std::string_view text);
  // Where that slot is, or the free one where it belongs.
  std::size_t Find(const Slot& slot, std::string_view text) const;
  void Grow();

  std::unique_ptr<std::pmr::monotonic_buffer_resource> bytes_;  // of all texts
  std::vector<std::string_view> texts_;                         // by number
  std::vector<Slot> slots_;  // a power of two, at most three in four of them taken
};

}  // namespace tallyrun
