// Every distinct text stored once and known by a number: equal texts have equal numbers, so rows
// are compared and copied as numbers. Texts are never taken out; the pool is dropped whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "core/Edition.h"
#include "core/TextTable.h"

namespace tallyrun {

class TextPool {
 public:
  using Id = std::uint32_t;
  static constexpr Id kEmpty = 0;  // the empty text

  TextPool();

  // The text's number, storing it when it is new.
  Id Intern(std::string_view text) {
    if (text.empty()) return kEmpty;
    const Id known = ids_.Find(text, [this](Id id) { return View(id); });
    return known != TextTable::kNone ? known : Add(text);
  }
  // Fetches what Intern will look at, for texts that are interned a little later.
  void Prefetch(std::string_view text) const { ids_.Prefetch(text); }
  // The text stays where it is for as long as the pool lives; kReadableBehindText bytes behind it
  // can be read.
  std::string_view View(Id id) const { return {entries_[id].text, entries_[id].length}; }
  // True when a text with a CR LF in it was ever stored.
  bool AnyLineEnd() const { return anyLineEnd_; }
  std::uint64_t Edition() const { return edition_; }
  // Texts stored, the empty one included.
  std::size_t Size() const { return entries_.size(); }

 private:
  struct Entry {
    const char* text;
    std::uint32_t length;
  };

  const char* Store(std::string_view text);
  Id Add(std::string_view text);

  std::uint64_t edition_ = NewEdition();
  std::vector<Entry> entries_;
  TextTable ids_;  // of all but the empty text
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t freeBytes_ = 0;
  bool anyLineEnd_ = false;
};

}  // namespace tallyrun
