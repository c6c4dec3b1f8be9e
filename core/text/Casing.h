// What the system code page knows of its characters: which lower-case character each of the 256
// folds to, and which are letters and digits. One implementation per system.
#pragma once

#include <array>
#include <string_view>

namespace tallyrun {

using CaseTable = std::array<unsigned char, 256>;

// Made once; lives as long as the program.
const CaseTable& LowerCaseTable();

inline char FoldCase(const CaseTable& table, char character) {
  return static_cast<char>(table[static_cast<unsigned char>(character)]);
}

// True when `text` holds letters and digits alone.
bool IsAlphanumeric(std::string_view text);

}  // namespace tallyrun
