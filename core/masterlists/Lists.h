// The two master lists that the entry sheet searches, their loaders and the indexes that the
// lookups search them by.
#pragma once

#include <string>

#include "core/masterlists/RecordIndex.h"
#include "core/masterlists/RecordList.h"

namespace tallyrun {

// Fields of a record, the first being the serial number.
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

struct BoMasterList : RecordList {
  EqualityIndex byBoId;
  EqualityIndex byClientCode;  // carriage returns taken out
};

struct IsinMasterList : RecordList {
  ContainingIndex byIsinCode;
  ContainingIndex byScripId;
};

extern BoMasterList BoList;
extern IsinMasterList IsinList;

// Each replaces its list by the records of a list file's text. Raises SubscriptOutOfRange at a line
// with too few fields, and where a BO list's last record can't be freed of carriage returns; the
// list then holds the records read so far.
void ReadBoList(std::string text);
void ReadIsinList(std::string text);

// The same for the file, under a trap of their own that shows the path and the error. A list whose
// file can't be read stays.
void LoadBoList(const std::string& path);
void LoadIsinList(const std::string& path);

}  // namespace tallyrun
