// A text file in blocks of whole lines, each read into the same small buffer: a file of any size
// costs no more memory than that, and what is read is still in the processor's cache when it is
// looked at.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/FileSystem.h"

namespace tallyrun {

struct LineBlock {
  std::string_view text;  // good until the next block is read
  bool isLast = false;
};

class LineBlocks {
 public:
  // Raises FileNotFound when the file is missing.
  explicit LineBlocks(const std::string& path, std::size_t bytes = kUsualBytes);

  // The next block; it ends behind a CR LF. The last one is what stands behind the file's last CR
  // LF, perhaps nothing. Not to be asked again after it.
  LineBlock Next();

  // How many lines the whole file may have when they go on as in `block`, its first.
  std::size_t LinesToExpect(const LineBlock& block) const;

 private:
  static constexpr std::size_t kUsualBytes = 256 * 1024;

  FileSystem::File file_;
  std::int64_t length_;
  std::string buffer_;
  std::size_t begin_ = 0;  // of what the block before left over
  std::size_t end_ = 0;
};

}  // namespace tallyrun
