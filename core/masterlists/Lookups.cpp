#include "core/masterlists/Lookups.h"

#include "core/masterlists/Lists.h"

namespace tallyrun {
namespace {

// The field of the record that a search found, or `otherwise` when it found none.
std::string FieldOr(const RecordList& list, int record, int field, const char* otherwise) {
  return record == 0 ? otherwise : std::string(list.Field(record, field));
}

std::string_view BoNameOf(std::string_view boId) {
  const int record = BoList.FindEqual(BoField::kBoId, boId);
  return record == 0 ? kBoNameNotFound : BoList.Field(record, BoField::kBoName);
}

// The record of the first ISIN code that contains the text; none for an empty text.
int FindIsin(std::string_view isinCode, std::string* fullCode) {
  if (isinCode.empty()) return 0;
  const int record = IsinList.FindContaining(IsinField::kIsinCode, isinCode);
  if (record != 0 && fullCode != nullptr) {
    *fullCode = IsinList.Field(record, IsinField::kIsinCode);
  }
  return record;
}

}  // namespace

std::string LookupClientCode(std::string_view boId) {
  return FieldOr(BoList, BoList.FindEqual(BoField::kBoId, boId), BoField::kClientCode, "");
}

std::string LookupBoIdByClientCode(std::string_view clientCode) {
  return FieldOr(BoList, BoList.FindEqualWithoutCr(BoField::kClientCode, clientCode),
                 BoField::kBoId, "");
}

std::string LookupBoName(std::string_view boId) { return std::string(BoNameOf(boId)); }

AccountViews AccountOfClientCode(std::string_view clientCode) {
  const int record = BoList.FindEqualWithoutCr(BoField::kClientCode, clientCode);
  return record == 0 ? AccountViews{"", BoNameOf("")} : AccountAt(record);
}

AccountViews AccountAt(int record) {
  const int named = BoList.FirstEqualTo(record, BoField::kBoId);
  return {BoList.Field(record, BoField::kBoId), BoList.Field(named, BoField::kBoName)};
}

std::string LookupIsinCodeByScrip(std::string_view scripId) {
  return FieldOr(IsinList, IsinList.FindContaining(IsinField::kScripId, scripId),
                 IsinField::kIsinCode, "");
}

std::string LookupIsinName(std::string_view isinCode, std::string* fullCode) {
  return FieldOr(IsinList, FindIsin(isinCode, fullCode), IsinField::kIsinName, kIsinNameNotFound);
}

std::string LookupScripByIsin(std::string_view isinCode, std::string* fullCode) {
  return FieldOr(IsinList, FindIsin(isinCode, fullCode), IsinField::kScripId, "");
}

}  // namespace tallyrun
