#include <windows.h>

#include "core/text/Casing.h"

namespace tallyrun {
namespace {

CaseTable MakeTable() {
  CaseTable table;
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    char character = static_cast<char>(byte);
    wchar_t wide[2];
    // Half of a two-byte character has no case of its own.
    if (MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, &character, 1, wide, 2) == 1) {
      CharLowerBuffA(&character, 1);
    }
    table[byte] = static_cast<unsigned char>(character);
  }
  return table;
}

}  // namespace

const CaseTable& LowerCaseTable() {
  static const CaseTable table = MakeTable();
  return table;
}

}  // namespace tallyrun
