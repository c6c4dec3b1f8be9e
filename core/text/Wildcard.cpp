#include "core/text/Wildcard.h"

#include <cstddef>

#include "core/text/Casing.h"

namespace tallyrun {

bool MatchesWildcard(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  const CaseTable& fold = LowerCaseTable();
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t at = 0;
  std::size_t in = 0;
  // Where to go on when what follows the last "*" does not fit: let it stand for one more.
  std::size_t star = kNone;
  std::size_t starAt = 0;
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;
      starAt = at;
    } else if (in < pattern.size() &&
               (pattern[in] == '?' || FoldCase(fold, pattern[in]) == FoldCase(fold, name[at]))) {
      ++in;
      ++at;
    } else if (star != kNone) {
      in = star + 1;
      at = ++starAt;
    } else {
      return false;
    }
  }
  while (in < pattern.size() && pattern[in] == '*') ++in;
  return in == pattern.size();
}

}  // namespace tallyrun
