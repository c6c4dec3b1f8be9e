// The account and the security that a row's codes stand for, for a pass over a whole sheet: each
// distinct code is looked up once.
#pragma once

#include <optional>
#include <string>

#include "core/grid/FlexGrid.h"
#include "core/grid/PerValue.h"

namespace tallyrun {

struct CodeAndName {
  CellValue code = CellValue::Empty;
  CellValue name = CellValue::Empty;
};

// Lives for one pass over a grid: the grid must not be resized, nor the lists change, meanwhile.
class RowLookups {
 public:
  explicit RowLookups(FlexGrid& grid) : grid_(grid) {}

  // BO ID and BO Name for a client code.
  CodeAndName AccountOf(CellValue clientCode);
  // ISIN Code and ISIN Name for a scrip ID.
  CodeAndName SecurityOf(CellValue scripId);

 private:
  FlexGrid& grid_;
  PerValue<std::optional<CodeAndName>> accounts_;
  PerValue<std::optional<CodeAndName>> securities_;
};

}  // namespace tallyrun
