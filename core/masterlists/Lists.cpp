#include "core/masterlists/Lists.h"

#include <utility>

#include "core/files/modFileIO.h"

namespace tallyrun {
namespace {

enum class LastRecord { AsRead, WithoutCarriageReturn };

void LoadList(RecordList& list, const std::string& path, int fields, LastRecord last,
              const char* failureTitle) {
  try {
    RecordList::Read(list, ReadWholeFile(path), fields, last == LastRecord::WithoutCarriageReturn);
  } catch (const std::exception& error) {
    TellLoadFailure(failureTitle, path, error);
  }
}

}  // namespace

RecordList BoList;
RecordList IsinList;

void LoadBoList(const std::string& path) {
  LoadList(BoList, path, BoField::kCount, LastRecord::WithoutCarriageReturn,
           "Error loading list of BOs.");
}

void LoadIsinList(const std::string& path) {
  LoadList(IsinList, path, IsinField::kCount, LastRecord::AsRead, "Error loading list of ISINs.");
}

}  // namespace tallyrun
