// The account and the security that a row's codes stand for, each distinct code looked up once for
// as long as the lists and the grid's texts stay what they are. Every step of the day goes over
// all rows anew, so the answers outlive the object.
#pragma once

#include <unordered_map>
#include <vector>

#include "core/grid/FlexGrid.h"

namespace tallyrun {

struct CodeAndName {
  CellValue code = CellValue::Empty;
  CellValue name = CellValue::Empty;
};

// Lives for one pass over a grid: the grid must not be resized, nor the lists change, meanwhile.
class RowLookups {
 public:
  explicit RowLookups(FlexGrid& grid);

  // BO ID and BO Name for a client code.
  CodeAndName AccountOf(CellValue clientCode) {
    const CodeAndName known = answers_.accounts.At(clientCode);
    return known.code != kUnknown ? known : LookUpAccount(clientCode);
  }
  // Fetch what AccountOf looks at, and then the texts that it answers with, for a client code that
  // is asked a little later.
  void PrefetchAccountOf(CellValue clientCode) const { answers_.accounts.Prefetch(clientCode); }
  void PrefetchTextsOf(CellValue clientCode) const;
  // Takes the answer for a client code from whoever has found it.
  void KeepAccount(CellValue clientCode, const CodeAndName& account) {
    answers_.accounts.Keep(clientCode, account);
  }
  // ISIN Code and ISIN Name for a scrip ID.
  CodeAndName SecurityOf(CellValue scripId) {
    const CodeAndName known = answers_.securities.At(scripId);
    return known.code != kUnknown ? known : LookUpSecurity(scripId);
  }

 private:
  // No text of a pool has this number.
  static constexpr CellValue kUnknown = CellValue{0x7FFFFFFF};

  // Answers by cell value; the numbers of texts are dense and so mostly are codes that are plain
  // numbers, so that answers are found by index.
  class Memo {
   public:
    CodeAndName At(CellValue key) const;
    void Keep(CellValue key, const CodeAndName& answer);
    void Prefetch(CellValue key) const;

   private:
    static constexpr std::uint32_t kLargeNumber = 1u << 20;

    std::vector<CodeAndName> texts_;
    std::vector<CodeAndName> smallNumbers_;
    std::unordered_map<CellValue, CodeAndName> largeNumbers_;
  };

  struct Answers {
    std::uint64_t texts = 0;  // editions that the answers were found in
    std::uint64_t boList = 0;
    std::uint64_t isinList = 0;
    Memo accounts;
    Memo securities;
  };

  static Answers& AnswersFor(const FlexGrid& grid);
  CodeAndName LookUpAccount(CellValue clientCode);
  CodeAndName LookUpSecurity(CellValue scripId);

  FlexGrid& grid_;
  Answers& answers_;
};

}  // namespace tallyrun
