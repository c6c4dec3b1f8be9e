// The two master lists that the entry sheet searches, and their loaders.
#pragma once

#include <string>

#include "core/masterlists/RecordList.h"

namespace tallyrun {

// Fields of a BO record: 1 S/N, 2 BO ID, 3 BO Name, 4 Client Code.
extern RecordList BoList;
// Fields of an ISIN record: 1 S/N, 2 ISIN Code, 3 ISIN Name, 4 Scrip ID, 5 Scrip Code.
extern RecordList IsinList;

namespace BoField {
inline constexpr int kBoId = 2;
inline constexpr int kBoName = 3;
inline constexpr int kClientCode = 4;
inline constexpr int kCount = 4;
}  // namespace BoField

namespace IsinField {
inline constexpr int kIsinCode = 2;
inline constexpr int kIsinName = 3;
inline constexpr int kScripId = 4;
inline constexpr int kCount = 5;
}  // namespace IsinField

// Each replaces its list with the records of the file. Both run under a trap of their own that
// shows the path and the error; the list then holds the records read so far.
void LoadBoList(const std::string& path);
void LoadIsinList(const std::string& path);

}  // namespace tallyrun
