#include "core/text/Split.h"

namespace tallyrun {

std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  if (text.empty()) return pieces;
  pieces.reserve(16);  // a line of any of our files has no more
  for (std::size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator)) {
    pieces.push_back(text.substr(0, end));
    text.remove_prefix(end + separator.size());
  }
  pieces.push_back(text);
  return pieces;
}

}  // namespace tallyrun
