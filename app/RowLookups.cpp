#include "app/RowLookups.h"

#include <string>

#include "core/Lookups.h"

namespace tallyrun {

std::optional<CodeAndName>& RowLookups::Memo::At(CellValue key) {
  if (IsNumber(key)) return numbers_[key];
  const std::size_t place = static_cast<std::size_t>(key);
  if (place >= texts_.size()) texts_.resize(place + place / 2 + 1);
  return texts_[place];
}

CodeAndName RowLookups::AccountOf(CellValue clientCode) {
  std::optional<CodeAndName>& answer = accounts_.At(clientCode);
  if (!answer) {
    CellScratch scratch;
    const std::string boId = LookupBoIdByClientCode(grid_.View(clientCode, scratch));
    answer = {grid_.Intern(boId), grid_.Intern(LookupBoName(boId))};
  }
  return *answer;
}

CodeAndName RowLookups::SecurityOf(CellValue scripId) {
  std::optional<CodeAndName>& answer = securities_.At(scripId);
  if (!answer) {
    CellScratch scratch;
    const std::string isinCode = LookupIsinCodeByScrip(grid_.View(scripId, scratch));
    answer = {grid_.Intern(isinCode), grid_.Intern(LookupIsinName(isinCode))};
  }
  return *answer;
}

}  // namespace tallyrun
