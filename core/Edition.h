// Numbers that tell one state of a thing from every other: what was remembered of a list or a pool
// is worth something only while its edition is the same.
#pragma once

#include <cstdint>

namespace tallyrun {

// A number never given before in this run. One thread alone may ask.
inline std::uint64_t NewEdition() {
  static std::uint64_t last = 0;
  return ++last;
}

}  // namespace tallyrun
