#include "core/text/SeparatorScan.h"

namespace tallyrun {

std::size_t CountLineEnds(std::string_view text) {
  std::size_t count = 0;
  ForEachSeparator(text, '\n', '\n', [&](std::size_t place) {
    count += place > 0 && text[place - 1] == '\r' ? 1 : 0;
  });
  return count;
}

}  // namespace tallyrun
