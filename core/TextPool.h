// Every distinct text stored once and known by a number: equal texts have equal numbers, so rows
// are compared and copied as numbers. Texts are never taken out; the pool is dropped whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace tallyrun {

class TextPool {
 public:
  using Id = std::uint32_t;
  static constexpr Id kEmpty = 0;  // the empty text

  TextPool();

  // The text's number, storing it when it is new.
  Id Intern(std::string_view text);
  // The text stays where it is for as long as the pool lives.
  std::string_view View(Id id) const { return {entries_[id].text, entries_[id].length}; }
  // Texts stored, the empty one included.
  std::size_t Size() const { return entries_.size(); }

 private:
  struct Entry {
    const char* text;
    std::uint32_t length;
    std::uint32_t hash;
  };

  static std::uint32_t HashOf(std::string_view text);
  const char* Store(std::string_view text);
  void Rehash(std::size_t slots);

  std::vector<Entry> entries_;
  std::vector<Id> slots_;  // open addressing; kEmpty marks a free slot
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t freeBytes_ = 0;
};

}  // namespace tallyrun
