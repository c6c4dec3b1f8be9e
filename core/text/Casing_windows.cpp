#include <windows.h>

#include <algorithm>
#include <string>

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

bool IsAlphanumeric(std::string_view text) {
  // By way of Unicode, as half of a two-byte character is none.
  std::wstring wide(text.size(), L'\0');
  const int length =
      MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(text.size()),
                          wide.data(), static_cast<int>(wide.size()));
  return std::all_of(wide.begin(), wide.begin() + length, IsCharAlphaNumericW) &&
         (length > 0 || text.empty());
}

}  // namespace tallyrun
