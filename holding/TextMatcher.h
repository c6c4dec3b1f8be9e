// Finds which of many texts occur in a line, in one pass over the line however many there are.
//
// Every text is anchored on its last 8, 4, 2 or 1 bytes. At each place of the line the bytes that
// end there are looked up in a small bit table that says "no" nearly always; only after a "yes"
// the whole texts that could end there are looked up.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tallyrun {

class TextMatcher {
 public:
  // The texts to look for, known by their index; distinct, none empty. They must outlive the
  // matcher.
  explicit TextMatcher(const std::vector<std::string_view>& texts);

  // Adds to `found` the index of every text that `line` contains; a text that occurs several
  // times is added as often.
  void FindIn(std::string_view line, std::vector<std::uint32_t>& found) const;

 private:
  // The texts that share one size of anchor.
  struct Anchors {
    std::size_t size = 0;                // bytes; 0 while there is no such text
    std::vector<std::size_t> lengths;    // of the texts, each once
    std::vector<std::uint64_t> present;  // one bit per hash of an anchor
    int shift = 0;                       // of a 64-bit hash, down to a bit's number
  };

  template <class Anchor>
  static std::uint64_t BitOf(const Anchors& anchors, const char* bytes);
  template <class Anchor>
  static void Prepare(Anchors& anchors, const std::vector<std::string_view>& texts);
  template <class Anchor>
  void Scan(const Anchors& anchors, std::string_view line, std::vector<std::uint32_t>& found) const;

  Anchors eight_;
  Anchors four_;
  Anchors two_;
  Anchors one_;
  std::unordered_map<std::string_view, std::uint32_t> indexOf_;
};

}  // namespace tallyrun
