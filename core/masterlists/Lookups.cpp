#include "core/masterlists/Lookups.h"

#include "core/masterlists/Lists.h"

namespace tallyrun {
namespace {

// The field of the record that a search found, or `otherwise` when it found none.
std::string FieldOr(const RecordList& list, std::optional<int> record, int field,
                    const char* otherwise) {
  return record ? std::string(list.Field(*record, field)) : otherwise;
}

// The record of the first ISIN code that contains the text; none for an empty text.
std::optional<int> FindIsin(std::string_view isinCode, std::string* fullCode) {
  if (isinCode.empty()) return std::nullopt;
  const std::optional<int> record = IsinList.byIsinCode.Find(isinCode);
  if (record && fullCode != nullptr) *fullCode = IsinList.Field(*record, IsinField::kIsinCode);
  return record;
}

}  // namespace

std::string LookupClientCode(std::string_view boId) {
  return FieldOr(BoList, BoList.byBoId.Find(boId), BoField::kClientCode, "");
}

std::string LookupBoIdByClientCode(std::string_view clientCode) {
  return FieldOr(BoList, BoList.byClientCode.Find(clientCode), BoField::kBoId, "");
}

std::string LookupBoName(std::string_view boId) {
  return FieldOr(BoList, BoList.byBoId.Find(boId), BoField::kBoName, kBoNameNotFound);
}

std::string LookupIsinCodeByScrip(std::string_view scripId) {
  return FieldOr(IsinList, IsinList.byScripId.Find(scripId), IsinField::kIsinCode, "");
}

std::string LookupIsinName(std::string_view isinCode, std::string* fullCode) {
  return FieldOr(IsinList, FindIsin(isinCode, fullCode), IsinField::kIsinName, kIsinNameNotFound);
}

std::string LookupScripByIsin(std::string_view isinCode, std::string* fullCode) {
  return FieldOr(IsinList, FindIsin(isinCode, fullCode), IsinField::kScripId, "");
}

}  // namespace tallyrun
