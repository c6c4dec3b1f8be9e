// Puts a long text together in a buffer and hands it on in large pieces, so that a file of any
// size is written without ever standing in memory whole.
#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string_view>

#include "core/text/ShortText.h"

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
      if (text.size() > Room()) {
        handedOn_ += text.size();
        return sink_(text);
      }
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

  // How many bytes were appended so far.
  std::uint64_t Position() const { return handedOn_ + static_cast<std::size_t>(end_ - Begin()); }

  // Appends again what was appended from one position to another. False, and nothing is appended,
  // when that is not in the buffer any more or the buffer is nearly full.
  bool AppendAgain(std::uint64_t from, std::uint64_t to) {
    using Step = std::array<char, 32>;
    const auto size = static_cast<std::size_t>(to - from);
    if (from < handedOn_ || Room() < size + sizeof(Step)) return false;
    const char* source = Begin() + (from - handedOn_);
    char* const end = end_ + size;
    // Steps of fixed length: the last one goes past the end, and may read what it is to write.
    for (; end_ < end; end_ += sizeof(Step), source += sizeof(Step)) {
      Step step;
      std::memcpy(&step, source, sizeof step);
      std::memcpy(end_, &step, sizeof step);
    }
    end_ = end;
    return true;
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
  static constexpr std::size_t kBytes = std::size_t{256} * 1024;
  static constexpr std::size_t kMostDigits = 10;
  static constexpr std::size_t kBlanks = 64;

  std::size_t Room() const { return static_cast<std::size_t>(buffer_.get() + kBytes - end_); }
  const char* Begin() const { return buffer_.get(); }
  void HandOn() {
    const std::string_view text(Begin(), static_cast<std::size_t>(end_ - Begin()));
    end_ = buffer_.get();
    handedOn_ += text.size();
    sink_(text);
  }

  const TextSink& sink_;
  std::unique_ptr<char[]> buffer_;
  char* end_;
  std::uint64_t handedOn_ = 0;  // bytes
};

}  // namespace tallyrun
