// Puts a long text together in a buffer and hands it on in large pieces, so that a file of any
// size is written without ever standing in memory whole.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string_view>

#include "core/ShortText.h"

namespace tallyrun {

// Takes the next piece of a text.
using TextSink = std::function<void(std::string_view)>;

class TextWriter {
 public:
  // The sink must outlive the writer. What was not handed on by Finish is lost.
  explicit TextWriter(const TextSink& sink)
      : sink_(sink), buffer_(std::make_unique_for_overwrite<char[]>(kBytes)), end_(buffer_.get()) {}

  void Append(std::string_view text) {
    if (text.size() > Room()) {
      HandOn();
      if (text.size() > Room()) return sink_(text);
    }
    std::memcpy(end_, text.data(), text.size());
    end_ += text.size();
  }

  // The same for a text behind which kReadableBehindText bytes can be read.
  void AppendStored(std::string_view text) {
    if (text.size() > kReadableBehindText || Room() < kReadableBehindText) return Append(text);
    std::memcpy(end_, text.data(), kReadableBehindText);
    end_ += text.size();
  }

  void Append(char character) {
    if (Room() == 0) HandOn();
    *end_++ = character;
  }

  void AppendNumber(std::uint32_t number) {
    if (Room() < kMostDigits) HandOn();
    end_ = std::to_chars(end_, end_ + kMostDigits, number).ptr;
  }

  void AppendRepeated(std::size_t count, char character) {
    for (; count > Room(); HandOn()) {
      std::memset(end_, character, Room());
      count -= Room();
      end_ += Room();
    }
    std::memset(end_, character, count);
    end_ += count;
  }

  // Few as they mostly are, they are set in steps of fixed length.
  void AppendBlanks(std::size_t count) {
    if (count > kBlanks || Room() < kBlanks) return AppendRepeated(count, ' ');
    std::memset(end_, ' ', kBlanks);
    end_ += count;
  }

  // Hands on what is left.
  void Finish() { HandOn(); }

 private:
  static constexpr std::size_t kBytes = 256 * 1024;
  static constexpr std::size_t kMostDigits = 10;
  static constexpr std::size_t kBlanks = 64;

  std::size_t Room() const { return static_cast<std::size_t>(buffer_.get() + kBytes - end_); }
  void HandOn() {
    const char* const begin = buffer_.get();
    const std::string_view text(begin, static_cast<std::size_t>(end_ - begin));
    end_ = buffer_.get();
    sink_(text);
  }

  const TextSink& sink_;
  std::unique_ptr<char[]> buffer_;
  char* end_;
};

}  // namespace tallyrun
