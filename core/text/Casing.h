// Ignoring case: which lower-case character each of the 256 characters folds to in the system
// code page. One implementation per system.
#pragma once

#include <array>

namespace tallyrun {

using CaseTable = std::array<unsigned char, 256>;

// Made once; lives as long as the program.
const CaseTable& LowerCaseTable();

inline char FoldCase(const CaseTable& table, char character) {
  return static_cast<char>(table[static_cast<unsigned char>(character)]);
}

}  // namespace tallyrun
