#include "core/LineBlocks.h"

#include <cstring>

#include "core/SeparatorScan.h"

namespace tallyrun {

LineBlocks::LineBlocks(const std::string& path, std::size_t bytes)
    : file_(FileSystem::File::OpenToRead(path)), length_(file_.Length()), buffer_(bytes, '\0') {}

LineBlock LineBlocks::Next() {
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  for (;;) {
    // A line longer than the buffer makes it grow.
    if (end_ == buffer_.size()) buffer_.resize(buffer_.size() * 2);
    const std::size_t count = file_.Read(buffer_.data() + end_, buffer_.size() - end_);
    end_ += count;
    const std::string_view text(buffer_.data(), end_);
    const std::size_t lineEnd = text.rfind("\r\n");
    if (lineEnd != std::string_view::npos) {
      begin_ = lineEnd + 2;
      return {text.substr(0, begin_), false};
    }
    if (count == 0) return {text, true};
  }
}

std::size_t LineBlocks::LinesToExpect(const LineBlock& block) const {
  const auto length = static_cast<std::size_t>(length_);
  const std::size_t lines = CountLineEnds(block.text);
  if (block.isLast || lines == 0) return lines + 1;
  // Lines grow with the numbers in them, so the first ones are the shortest.
  return length / block.text.size() * lines + 2 * lines;
}

}  // namespace tallyrun
