#include "core/masterlists/Lists.h"

#include <utility>

#include "core/files/modFileIO.h"

namespace tallyrun {
namespace {

// The indexes go by what was read, also where the reading ended in an error.
void ReadInto(BoMasterList& list, std::string text) {
  list.Read(std::move(text), BoField::kCount);
  list.RepairLast();
}

void ReadInto(IsinMasterList& list, std::string text) {
  list.Read(std::move(text), IsinField::kCount);
}

void Index(BoMasterList& list) {
  list.byBoId = EqualityIndex(list, BoField::kBoId, CarriageReturns::Kept);
  list.byClientCode = EqualityIndex(list, BoField::kClientCode, CarriageReturns::TakenOut);
}

void Index(IsinMasterList& list) {
  list.byIsinCode = ContainingIndex(list, IsinField::kIsinCode);
  list.byScripId = ContainingIndex(list, IsinField::kScripId);
}

template <class List>
void ReadAndIndex(List& list, std::string text) {
  try {
    ReadInto(list, std::move(text));
  } catch (...) {
    Index(list);
    throw;
  }
  Index(list);
}

template <class List>
void LoadList(List& list, const std::string& path, const char* failureTitle) {
  try {
    ReadAndIndex(list, ReadWholeFile(path));
  } catch (const std::exception& error) {
    TellLoadFailure(failureTitle, path, error);
  }
}

}  // namespace

BoMasterList BoList;
IsinMasterList IsinList;

void ReadBoList(std::string text) { ReadAndIndex(BoList, std::move(text)); }
void ReadIsinList(std::string text) { ReadAndIndex(IsinList, std::move(text)); }

void LoadBoList(const std::string& path) { LoadList(BoList, path, "Error loading list of BOs."); }
void LoadIsinList(const std::string& path) {
  LoadList(IsinList, path, "Error loading list of ISINs.");
}

}  // namespace tallyrun
