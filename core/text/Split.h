// Cutting a text into pieces, and the marks that our files are cut at.
#pragma once

#include <string_view>
#include <vector>

namespace tallyrun {

inline constexpr std::string_view kLineEnd = "\r\n";
inline constexpr std::string_view kCellSeparator = "~";

// The pieces of `text` between `separator`s, views into it; an empty text has no piece at all.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator);

}  // namespace tallyrun
