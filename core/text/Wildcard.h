// Whether a file's name matches a wildcard pattern, ignoring case.
#pragma once

#include <string_view>

namespace tallyrun {

// "*" stands for any characters or none, "?" for exactly one; "*.*" matches every name.
bool MatchesWildcard(std::string_view name, std::string_view pattern);

}  // namespace tallyrun
