#include "core/text/Split.h"

namespace tallyrun {

std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  pieces.reserve(16);  // a line of any of our files has no more
  for (const std::string_view piece : Pieces(text, separator)) pieces.push_back(piece);
  return pieces;
}

std::size_t CountPieces(std::string_view text, std::string_view separator) {
  std::size_t count = 0;
  for ([[maybe_unused]] const std::string_view piece : Pieces(text, separator)) ++count;
  return count;
}

}  // namespace tallyrun
