#include <algorithm>
#include <cctype>

#include "core/text/Casing.h"

namespace tallyrun {
namespace {

// As Windows-1252, the code page of western Europe, has it.
constexpr CaseTable MakeTable() {
  CaseTable table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    const bool latin = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE);
    const bool multiplicationSign = byte == 0xD7;
    table[byte] = static_cast<unsigned char>(latin && !multiplicationSign ? byte + 0x20 : byte);
  }
  table[0x8A] = 0x9A;  // S with caron
  table[0x8C] = 0x9C;  // OE
  table[0x8E] = 0x9E;  // Z with caron
  table[0x9F] = 0xFF;  // Y with diaeresis
  return table;
}

}  // namespace

const CaseTable& LowerCaseTable() {
  static constexpr CaseTable kTable = MakeTable();
  return kTable;
}

bool IsAlphanumeric(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](unsigned char byte) {
    return std::isalnum(byte) != 0 || (byte >= 0xC0 && byte != 0xD7 && byte != 0xF7);
  });
}

}  // namespace tallyrun
