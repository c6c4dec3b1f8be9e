#include "core/files/LineBlocks.h"

#include <algorithm>

#include "core/text/SeparatorScan.h"

namespace tallyrun {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

LineBlocks::LineBlocks(const std::string& path, std::size_t bytes)
    : file_(FileSystem::File::OpenToRead(path)), bytes_(bytes) {}

LineBlock LineBlocks::Next(Buffer& buffer) {
  const LineBlock block = Read(buffer);
  if (linesToExpect_ == 0) ExpectLinesAsIn(block);
  return block;
}

LineBlock LineBlocks::Read(Buffer& buffer) {
  buffer.resize(std::max({buffer.size(), bytes_, rest_.size()}));
  std::copy(rest_.begin(), rest_.end(), buffer.begin());
  std::size_t end = rest_.size();
  for (;;) {
    // A line longer than the buffer makes it grow.
    if (end == buffer.size()) buffer.resize(buffer.size() * 2);
    const std::size_t count = file_.Read(buffer.data() + end, buffer.size() - end);
    end += count;
    const std::string_view text(buffer.data(), end);
    const std::size_t lineEnd = text.rfind(kLineEnd);
    if (count == 0 && lineEnd == text.npos) return {text, true};
    if (lineEnd == text.npos) continue;
    const std::size_t blockEnd = lineEnd + kLineEnd.size();
    rest_ = text.substr(blockEnd);
    return {text.substr(0, blockEnd), false};
  }
}

void LineBlocks::ExpectLinesAsIn(const LineBlock& block) {
  const std::size_t lines = CountLineEnds(block.text);
  linesToExpect_ = lines + 1;
  if (block.isLast) return;
  // Lines grow with the numbers in them, so the first ones are the shortest.
  const auto length = static_cast<std::size_t>(file_.Length());
  linesToExpect_ = length / block.text.size() * lines + 2 * lines;
}

}  // namespace tallyrun
