// The account and the security that a row's codes stand for, each distinct code looked up once.
// Lives for one pass over a grid: the grid must not be resized, nor the lists change, meanwhile.
#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include "core/FlexGrid.h"

namespace tallyrun {

struct CodeAndName {
  CellValue code = CellValue::Empty;
  CellValue name = CellValue::Empty;
};

class RowLookups {
 public:
  explicit RowLookups(FlexGrid& grid) : grid_(grid) {}

  // BO ID and BO Name for a client code.
  CodeAndName AccountOf(CellValue clientCode);
  // ISIN Code and ISIN Name for a scrip ID.
  CodeAndName SecurityOf(CellValue scripId);

 private:
  // Answers by cell value; text numbers are dense, so most are found by index.
  class Memo {
   public:
    std::optional<CodeAndName>& At(CellValue key);

   private:
    std::vector<std::optional<CodeAndName>> texts_;
    std::unordered_map<CellValue, std::optional<CodeAndName>> numbers_;
  };

  FlexGrid& grid_;
  Memo accounts_;
  Memo securities_;
};

}  // namespace tallyrun
