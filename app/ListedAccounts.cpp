#include "app/ListedAccounts.h"

#include "core/entry/EntryRow.h"
#include "core/masterlists/Lists.h"

namespace tallyrun {

ListedAccounts::ListedAccounts(FlexGrid& grid, RowLookups& lookups, ColumnFitter& fitter)
    : grid_(grid),
      lookups_(lookups),
      fitter_(fitter),
      cells_(static_cast<std::size_t>(BoList.Count()) + 1) {}

void ListedAccounts::LookUp(std::span<const Unknown> accounts) {
  for (const Unknown& each : accounts) BoList.PrefetchRecord(each.record);
  sought_.clear();
  for (const Unknown& each : accounts) {
    Sought& sought = sought_.emplace_back();
    sought.views = AccountAt(each.record);
    sought.clientCode = FlexGrid::Interning(grid_, each.clientCode);
    __builtin_prefetch(sought.views.boId.data());
  }
  for (Sought& each : sought_) {
    each.boId = FlexGrid::Interning(grid_, each.views.boId);
    each.boName = FlexGrid::Interning(grid_, each.views.boName);
  }
  for (std::size_t at = 0; at < accounts.size(); ++at) {
    const Sought& sought = sought_[at];
    AccountCells& cells = cells_[static_cast<std::size_t>(accounts[at].record)];
    cells.clientCode = grid_.Intern(sought.clientCode);
    cells.account = {grid_.Intern(sought.boId), grid_.Intern(sought.boName)};
    lookups_.KeepAccount(cells.clientCode, cells.account);
  }
}

AccountCells ListedAccounts::TakeUnlisted(std::string_view clientCode) {
  const CellValue cell = grid_.Intern(clientCode);
  AccountCells cells = {cell, lookups_.AccountOf(cell)};
  Fit(cells);
  return cells;
}

void ListedAccounts::Fit(AccountCells& cells) {
  fitter_.Fit(EntryColumn::kClientCode, cells.clientCode);
  fitter_.Fit(EntryColumn::kBoId, cells.account.code);
  fitter_.Fit(EntryColumn::kBoName, cells.account.name);
  cells.areFitted = true;
}

}  // namespace tallyrun
