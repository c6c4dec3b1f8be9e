// Which of many wanted texts stand in a line, each anywhere in it. Texts of eight bytes or more are
// known by their endings: the last bytes of each, as many as the shortest of them has, sixteen at
// most. A line is walked byte by byte, and nearly everywhere the bits that all endings have in
// common are not there (account and security numbers begin alike and end in digits, names don't).
// Where they are, the ending is looked up in a hash table, and the texts that end so are compared
// whole. The few texts of fewer bytes are searched for one by one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallyrun {

class TextMatcher {
 public:
  // The wanted texts, each once, known by their index. They must outlive the matcher.
  explicit TextMatcher(const std::vector<std::string>& texts);

  // Puts the index of every text that `line` contains into `found`, each once, in order. Every
  // line contains the empty text.
  void FindIn(std::string_view line, std::vector<std::uint32_t>& found);

 private:
  // The first and the last eight bytes of an ending; they may overlap.
  struct Ending {
    std::uint64_t front = 0;
    std::uint64_t back = 0;

    bool operator==(const Ending&) const = default;
  };
  static constexpr std::uint32_t kNone = UINT32_MAX;

  Ending EndingOf(std::string_view text) const;
  void AddLong(std::uint32_t index);
  // Of the first text with this ending, or the free one where it would stand.
  std::size_t SlotOf(const Ending& ending) const;
  void FindLongIn(std::string_view line, std::vector<std::uint32_t>& found);
  // Those that `part` of the line at hand ends with and that were not found in it before.
  void FindAtEndOf(std::string_view part, std::vector<std::uint32_t>& found);

  const std::vector<std::string>& texts_;
  std::vector<std::uint32_t> shortTexts_;  // their indices
  std::size_t endingBytes_;
  std::vector<Ending> endings_;       // by index
  std::vector<std::uint32_t> next_;   // by index, the next text that ends alike or kNone
  std::vector<std::uint32_t> slots_;  // a hash table of the first text with each ending, or kNone
  std::vector<std::uint32_t> lastLines_;  // by index, the number of the last line with the text
  std::uint32_t line_ = 0;                // the number of the line at hand
  Ending bitsOfAll_ = {~std::uint64_t{0}, ~std::uint64_t{0}};  // set in every ending
  Ending bitsOfAny_;                                           // set in one at least
};

}  // namespace tallyrun
