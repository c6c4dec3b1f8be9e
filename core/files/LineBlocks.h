// A text file in blocks of whole lines, each read into a small buffer: a file of any size costs no
// more memory than that, and what is read is still in the processor's cache when it is looked at.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/files/FileSystem.h"

namespace tallyrun {

struct LineBlock {
  std::string_view text;  // in the buffer that it was read into
  bool isLast = false;
};

class LineBlocks {
 public:
  using Buffer = std::vector<char>;

  // Raises FileNotFound when the file is missing.
  explicit LineBlocks(const std::string& path, std::size_t bytes = kUsualBytes);

  // The next block, in the place of what the buffer held; it ends behind a CR LF. The last one is
  // what stands behind the file's last CR LF, perhaps nothing. Not to be asked again after it.
  LineBlock Next(Buffer& buffer);

  // How many lines the whole file may have when they go on as in its first block, which was read.
  std::size_t LinesToExpect() const { return linesToExpect_; }

 private:
  LineBlock Read(Buffer& buffer);
  void ExpectLinesAsIn(const LineBlock& block);

  static constexpr std::size_t kUsualBytes = std::size_t{256} * 1024;

  FileSystem::File file_;
  const std::size_t bytes_;  // of a buffer for lines of usual length
  std::string rest_;         // what was read behind the last block
  std::size_t linesToExpect_ = 0;
};

}  // namespace tallyrun
