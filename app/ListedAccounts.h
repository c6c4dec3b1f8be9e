// The accounts of the BO list as cells of one sheet, for a pass over a trade file: each is looked
// up and put among the sheet's texts once, and found by its record from then on. A hundred thousand
// accounts do not fit in a processor's nearer caches, so every step here is taken for some lines at
// a time and fetches what the next one will look at.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "app/RowLookups.h"
#include "core/grid/ColumnFitter.h"
#include "core/grid/FlexGrid.h"
#include "core/masterlists/Lookups.h"

namespace tallyrun {

struct AccountCells {
  CellValue clientCode = CellValue::Empty;
  CodeAndName account;
  bool areFitted = false;  // into their columns
};

// Lives for one pass; the list must not change meanwhile. All it is made from must outlive it.
class ListedAccounts {
 public:
  static constexpr int kUnlisted = 0;

  ListedAccounts(FlexGrid& grid, RowLookups& lookups, ColumnFitter& fitter);

  // Fetches what is looked at for the account a little later.
  void Prefetch(int record) const { __builtin_prefetch(&cells_[static_cast<std::size_t>(record)]); }
  // False while LookUp has not been asked for the record.
  bool IsKnown(int record) const {
    return cells_[static_cast<std::size_t>(record)].clientCode != CellValue::Empty;
  }
  // What the sheet takes for a known account, whose columns are wide enough for it from now on.
  const AccountCells& Take(int record) {
    AccountCells& cells = cells_[static_cast<std::size_t>(record)];
    if (!cells.areFitted) Fit(cells);
    return cells;
  }
  // The same for a code that the list doesn't have.
  AccountCells TakeUnlisted(std::string_view clientCode);

  struct Unknown {
    int record;
    std::string_view clientCode;
  };
  // Makes some listed accounts known.
  void LookUp(std::span<const Unknown> accounts);

 private:
  // An account on its way from the list to the sheet.
  struct Sought {
    AccountViews views;
    FlexGrid::Interning clientCode;
    FlexGrid::Interning boId;
    FlexGrid::Interning boName;
  };

  void Fit(AccountCells& cells);

  FlexGrid& grid_;
  RowLookups& lookups_;
  ColumnFitter& fitter_;
  std::vector<AccountCells> cells_;  // by record
  std::vector<Sought> sought_;
};

}  // namespace tallyrun
