#include "holding/CheckHoldings.h"

#include <deque>
#include <exception>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/Application.h"
#include "core/Platform.h"
#include "core/entry/EntryRow.h"
#include "core/files/modFileIO.h"
#include "core/text/Conversion.h"
#include "holding/FramePacer.h"
#include "holding/HoldingFile.h"
#include "holding/HoldingSearch.h"

namespace tallyrun {

std::string HoldingMessage;

namespace {

constexpr int kNoRow = 0;
// Looking at the clock takes as long as checking a row.
constexpr int kRowsPerLook = 64;

// The distinct values of a column, numbered in the order in which they are met.
class Distinct {
 public:
  explicit Distinct(const FlexGrid& grid) : grid_(grid), numbers_(grid.DistinctTexts(), 0) {}

  std::uint32_t NumberOf(CellValue value) {
    if (IsNumber(value)) return NumberOfNumber(value);
    std::uint32_t& number = numbers_[static_cast<std::size_t>(value)];
    if (number == 0) number = Add(grid_.TextOf(value)) + 1;
    return number - 1;
  }
  // Good for as long as this lives.
  std::vector<std::string_view> TakeTexts() { return std::move(texts_); }

 private:
  std::uint32_t NumberOfNumber(CellValue value) {
    const auto [place, isNew] = numbersOfNumbers_.emplace(value, 0);
    CellScratch scratch;
    if (isNew) place->second = Add(digits_.emplace_back(grid_.View(value, scratch)));
    return place->second;
  }
  std::uint32_t Add(std::string_view text) {
    texts_.push_back(text);
    return static_cast<std::uint32_t>(texts_.size()) - 1;
  }

  const FlexGrid& grid_;
  std::vector<std::uint32_t> numbers_;  // plus 1, by the text's number in the grid
  std::unordered_map<CellValue, std::uint32_t> numbersOfNumbers_;
  std::deque<std::string> digits_;
  std::vector<std::string_view> texts_;
};

// The balance of every data row's BO ID and ISIN.
HoldingBalances BalancesOf(const FlexGrid& grid, HoldingFile& file) {
  Distinct boIds(grid);
  Distinct isins(grid);
  HoldingQuery query;
  query.pairs.reserve(static_cast<std::size_t>(grid.Rows() - 1));
  for (int row = 1; row < grid.Rows(); ++row) {
    const auto cells = grid.RowCells(row);
    query.pairs.push_back(
        {boIds.NumberOf(cells[EntryColumn::kBoId]), isins.NumberOf(cells[EntryColumn::kIsinCode])});
  }
  query.boIds = boIds.TakeTexts();
  query.isins = isins.TakeTexts();
  return FindHoldings(file, query);
}

void ShowRow(FlexGrid& grid, int row) {
  grid.SelectRow(row);
  grid.SetTopRow(row);
}

bool IsSameHolding(const FlexGrid& grid, int row, int other) {
  return grid.Cell(row, EntryColumn::kBoId) == grid.Cell(other, EntryColumn::kBoId) &&
         grid.Cell(row, EntryColumn::kIsinCode) == grid.Cell(other, EntryColumn::kIsinCode);
}

// Goes through the rows of the sheet and keeps the running total of neighbours that ask for the
// same holding.
class RowCheck {
 public:
  RowCheck(const FlexGrid& grid, const HoldingBalances& balances)
      : grid_(grid), balances_(balances) {}

  // True when the row's holding covers what it and the equal rows just before it ask for.
  bool Passes(int row) {
    total_ = TotalWith(row, grid_.Cell(row, EntryColumn::kQuantity));
    return CompareHolding(grid_, balances_, row, total_);
  }

 private:
  std::int32_t TotalWith(int row, CellValue quantity) const {
    const bool continues = row > 1 && IsSameHolding(grid_, row, row - 1);
    if (IsNumber(quantity) && !continues) return static_cast<std::int32_t>(NumberOf(quantity));
    CellScratch scratch;
    const std::string_view text = grid_.View(quantity, scratch);
    return continues ? RoundToInt32(total_ + ToDouble(text)) : ToInt32(text);
  }

  const FlexGrid& grid_;
  const HoldingBalances& balances_;
  std::int32_t total_ = 0;
};

// Checks every row, showing each as it goes. The first row that failed, or kNoRow; an error
// leaves the row it was met in selected.
int FindFirstFailingRow(const HoldingCheck& check, const HoldingBalances& balances) {
  FlexGrid& grid = check.entries;
  RowCheck rows(grid, balances);
  FramePacer pacer;
  int firstFailing = kNoRow;
  int row = 1;
  try {
    for (; row < grid.Rows(); ++row) {
      if (row % kRowsPerLook == 1 && pacer.IsDue(FramePacer::Clock::now())) {
        ShowRow(grid, row);
        check.repaintEntries();
      }
      if (!rows.Passes(row) && firstFailing == kNoRow) firstFailing = row;
    }
  } catch (...) {
    ShowRow(grid, row);
    throw;
  }
  if (grid.Rows() > 1) ShowRow(grid, firstFailing != kNoRow ? firstFailing : grid.Rows() - 1);
  return firstFailing;
}

bool CheckAgainst(const HoldingCheck& check, HoldingFile file) {
  check.window.SetCaption(CaptionFor("...Checking balance on " + std::string(file.Subject())));
  HoldingMessage.clear();
  const HoldingBalances balances = BalancesOf(check.entries, file);
  const bool failed = FindFirstFailingRow(check, balances) != kNoRow;
  if (!HoldingMessage.empty()) check.showHoldingMessage();
  EndBusy(check.window, check.savedCaption);
  return failed;
}

bool RefuseEmptyFile(const HoldingCheck& check) {
  EndBusy(check.window, check.savedCaption);
  Tell("The selected file is empty.\r\nPlease properly select the holding file (11DPA6UX.TXT).",
       "Empty File.", MessageIcon::Critical);
  return true;
}

}  // namespace

bool CheckHoldings(const HoldingCheck& check) {
  const auto path =
      ThePlatform().AskForFile({"Choose Holding FIle (11DPA6UX.TXT)",
                                {{"Text files (*.TXT)", "*.TXT"}, {"All Files (*.*)", "*.*"}}});
  if (path) return CheckHoldingFile(check, *path);
  EndBusy(check.window, check.savedCaption);
  Tell("You must select a holding file(DPA6UX.TXT) before sending to KTX.", "Holding Not Checked.",
       MessageIcon::Critical);
  return true;
}

bool CheckHoldingFile(const HoldingCheck& check, const std::string& path) {
  try {
    if (FileLength(path) <= 0) return RefuseEmptyFile(check);
    check.window.SetPointer(PointerShape::Hourglass);
    LineBlocks blocks(path);
    return CheckAgainst(check, HoldingFile(blocks));
  } catch (const std::exception&) {
    EndBusy(check.window, check.savedCaption);
    Tell("Error checking BO account holding balance.", "Holding Check Error.",
         MessageIcon::Critical);
    return true;
  }
}

bool CompareHolding(const FlexGrid& entries, const HoldingBalances& balances, int row,
                    std::int32_t quantity) {
  const std::size_t pair = static_cast<std::size_t>(row) - 1;
  if (balances.Covers(pair, quantity)) return true;
  HoldingMessage +=
      entries.Text(row, EntryColumn::kBoId) + " " + entries.Text(row, EntryColumn::kIsinCode);
  HoldingMessage += balances.IsMissing(pair) ? " holding balance missing."
                                             : " holding insufficient. " + EntryMode.name +
                                                   " quantity : " + std::to_string(quantity) +
                                                   " Holding balance : " + balances.TextOf(pair);
  HoldingMessage += "\r\n";
  return false;
}

bool CheckSummarized(const HoldingCheck& check) {
  FlexGrid& grid = check.entries;
  for (int row = 1; row + 1 < grid.Rows(); ++row) {
    if (!IsSameHolding(grid, row, row + 1)) continue;
    EndBusy(check.window, check.savedCaption);
    Tell("Please summarize records before sending.", "Not Summarized.", MessageIcon::Critical);
    grid.SelectRow(row);
    if (!grid.IsRowVisible(row)) grid.SetTopRow(row);
    return true;
  }
  return false;
}

}  // namespace tallyrun
