// Cutting a text into pieces, and the marks that our files are cut at.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace tallyrun {

inline constexpr std::string_view kLineEnd = "\r\n";
inline constexpr std::string_view kCellSeparator = "~";

// The pieces of a text between separators one after the other, views into it; an empty text has no
// piece at all:
//   for (const std::string_view line : Pieces(text, kLineEnd)) ...
class Pieces {
 public:
  Pieces(std::string_view text, std::string_view separator) : text_(text), separator_(separator) {}

  class Iterator {
   public:
    Iterator(std::string_view rest, std::string_view separator)
        : rest_(rest), separator_(separator), end_(rest.find(separator)) {}

    std::string_view operator*() const { return rest_.substr(0, end_); }
    Iterator& operator++() {
      isOver_ = end_ == std::string_view::npos;
      if (isOver_) return *this;
      rest_.remove_prefix(end_ + separator_.size());
      end_ = rest_.find(separator_);
      return *this;
    }
    struct End {};
    bool operator!=(End) const { return !isOver_; }

   private:
    friend class Pieces;
    std::string_view rest_;
    std::string_view separator_;
    std::size_t end_;  // of the first piece of the rest
    bool isOver_ = false;
  };

  Iterator begin() const {
    Iterator first(text_, separator_);
    first.isOver_ = text_.empty();
    return first;
  }
  Iterator::End end() const { return {}; }

 private:
  std::string_view text_;
  std::string_view separator_;
};

// The first pieces of a text, at most `kMost`, cut at one character.
template <std::size_t kMost>
class FirstPieces {
 public:
  FirstPieces(std::string_view text, char separator) {
    if (text.empty()) return;
    for (std::size_t end = 0; count_ < kMost && end != text.npos; text.remove_prefix(end + 1)) {
      end = text.find(separator);
      pieces_[count_++] = text.substr(0, end);
      if (end == text.npos) break;
    }
  }

  std::size_t Count() const { return count_; }
  // Below Count().
  std::string_view operator[](std::size_t piece) const { return pieces_[piece]; }

 private:
  std::array<std::string_view, kMost> pieces_;
  std::size_t count_ = 0;
};

// All pieces at once.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator);

// How many pieces there are.
std::size_t CountPieces(std::string_view text, std::string_view separator);

}  // namespace tallyrun
