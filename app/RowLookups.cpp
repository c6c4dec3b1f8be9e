#include "app/RowLookups.h"

#include "core/masterlists/Lookups.h"

namespace tallyrun {

CodeAndName RowLookups::AccountOf(CellValue clientCode) {
  std::optional<CodeAndName>& account = accounts_[clientCode];
  if (!account) {
    const std::string boId = LookupBoIdByClientCode(grid_.Text(clientCode));
    account = {grid_.Intern(boId), grid_.Intern(LookupBoName(boId))};
  }
  return *account;
}

CodeAndName RowLookups::SecurityOf(CellValue scripId) {
  std::optional<CodeAndName>& security = securities_[scripId];
  if (!security) {
    const std::string isinCode = LookupIsinCodeByScrip(grid_.Text(scripId));
    security = {grid_.Intern(isinCode), grid_.Intern(LookupIsinName(isinCode))};
  }
  return *security;
}

}  // namespace tallyrun
