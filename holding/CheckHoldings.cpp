#include "holding/CheckHoldings.h"

#include <chrono>
#include <exception>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Application.h"
#include "core/BusyScope.h"
#include "core/Platform.h"
#include "core/entry/EntryRow.h"
#include "core/files/modFileIO.h"
#include "core/grid/PerValue.h"
#include "core/text/Conversion.h"
#include "core/text/Split.h"
#include "holding/HoldingFile.h"

namespace tallyrun {

std::string HoldingMessage;

namespace {

constexpr std::chrono::microseconds kFrame{1'000'000 / 60};
// Looking at the clock takes as long as checking a row.
constexpr int kRowsPerLook = 64;

// The distinct texts of a column, numbered in the order in which they are met.
class DistinctTexts {
 public:
  DistinctTexts(const FlexGrid& grid, int col) : grid_(grid), col_(col) {}

  std::uint32_t IndexIn(int row) {
    std::uint32_t& number = numbers_[grid_.Cell(row, col_)];
    if (number == 0) {
      texts_.emplace_back(std::string_view(grid_.Text(row, col_)));
      number = static_cast<std::uint32_t>(texts_.size());
    }
    return number - 1;
  }
  std::vector<std::string> Take() { return std::move(texts_); }

 private:
  const FlexGrid& grid_;
  const int col_;
  PerValue<std::uint32_t> numbers_;  // from 1
  std::vector<std::string> texts_;
};

// The BO ID and ISIN of every data row, the first being pair 0.
WantedHoldings WantedIn(const FlexGrid& grid) {
  DistinctTexts boIds(grid, EntryColumn::kBoId);
  DistinctTexts isins(grid, EntryColumn::kIsinCode);
  WantedHoldings wanted;
  wanted.pairs.reserve(static_cast<std::size_t>(grid.Rows()) - 1);
  for (int row = 1; row < grid.Rows(); ++row) {
    wanted.pairs.push_back({boIds.IndexIn(row), isins.IndexIn(row)});
  }
  wanted.boIds = boIds.Take();
  wanted.isins = isins.Take();
  return wanted;
}

void ShowRow(FlexGrid& grid, int row) {
  grid.SelectRow(row);
  grid.SetTopRow(row);
}

bool IsSameHolding(const FlexGrid& grid, int row, int other) {
  return grid.Cell(row, EntryColumn::kBoId) == grid.Cell(other, EntryColumn::kBoId) &&
         grid.Cell(row, EntryColumn::kIsinCode) == grid.Cell(other, EntryColumn::kIsinCode);
}

// What the row asks for, together with the `before` that the equal rows just above it ask for.
std::int32_t QuantityToCheck(const FlexGrid& grid, int row, std::int32_t before) {
  const auto text = grid.Text(row, EntryColumn::kQuantity);
  const bool continues = row > 1 && IsSameHolding(grid, row, row - 1);
  return continues ? RoundToInt32(before + ToDouble(text)) : ToInt32(text);
}

// Checks every row, showing each as it goes. The first row that failed, if any did; an error leaves
// the row it was met in selected.
std::optional<int> FindFirstFailingRow(const HoldingCheck& check,
                                       const std::vector<HoldingBalance>& balances) {
  using Clock = std::chrono::steady_clock;
  FlexGrid& grid = check.entries;
  Clock::time_point nextFrame = Clock::now();
  std::int32_t quantity = 0;
  std::optional<int> firstFailing;
  int row = 1;
  try {
    for (; row < grid.Rows(); ++row) {
      if (row % kRowsPerLook == 1 && Clock::now() >= nextFrame) {
        nextFrame = Clock::now() + kFrame;
        ShowRow(grid, row);
        check.repaintEntries();
      }
      quantity = QuantityToCheck(grid, row, quantity);
      const HoldingBalance& balance = balances[static_cast<std::size_t>(row) - 1];
      if (!CompareHolding(grid, row, quantity, balance) && !firstFailing) firstFailing = row;
    }
  } catch (...) {
    ShowRow(grid, row);
    throw;
  }
  if (grid.Rows() > 1) ShowRow(grid, firstFailing.value_or(grid.Rows() - 1));
  return firstFailing;
}

bool CheckAgainst(const HoldingCheck& check, HoldingFile file, BusyScope& busy) {
  busy.Show(CaptionFor("...Checking balance on " + std::string(file.Subject())));
  HoldingMessage.clear();
  const auto balances = FindBalances(file, WantedIn(check.entries));
  const bool failed = FindFirstFailingRow(check, balances).has_value();
  if (!HoldingMessage.empty()) check.showHoldingMessage();
  return failed;
}

bool RefuseEmptyFile(BusyScope& busy) {
  busy.End();
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
  BusyScope busy(check.window);
  busy.End();
  Tell("You must select a holding file(DPA6UX.TXT) before sending to KTX.", "Holding Not Checked.",
       MessageIcon::Critical);
  return true;
}

bool CheckHoldingFile(const HoldingCheck& check, const std::string& path) {
  BusyScope busy(check.window);
  try {
    if (FileLength(path) <= 0) return RefuseEmptyFile(busy);
    busy.ShowPointer(PointerShape::Hourglass);
    const std::string report = ReadWholeFile(path);
    return CheckAgainst(check, HoldingFile(report), busy);
  } catch (const std::exception&) {
    busy.End();
    Tell("Error checking BO account holding balance.", "Holding Check Error.",
         MessageIcon::Critical);
    return true;
  }
}

bool CompareHolding(const FlexGrid& entries, int row, std::int32_t quantity,
                    const HoldingBalance& balance) {
  if (balance && quantity <= ToDouble(*balance)) return true;
  HoldingMessage += entries.Text(row, EntryColumn::kBoId);
  HoldingMessage += ' ';
  HoldingMessage += entries.Text(row, EntryColumn::kIsinCode);
  if (balance) {
    HoldingMessage += " holding insufficient. " + EntryMode.name +
                      " quantity : " + std::to_string(quantity) + " Holding balance : ";
    HoldingMessage += *balance;
  } else {
    HoldingMessage += " holding balance missing.";
  }
  HoldingMessage += kLineEnd;
  return false;
}

bool CheckSummarized(const HoldingCheck& check) {
  FlexGrid& grid = check.entries;
  for (int row = 1; row + 1 < grid.Rows(); ++row) {
    if (!IsSameHolding(grid, row, row + 1)) continue;
    BusyScope busy(check.window);
    busy.End();
    Tell("Please summarize records before sending.", "Not Summarized.", MessageIcon::Critical);
    grid.SelectRow(row);
    if (!grid.IsRowVisible(row)) grid.SetTopRow(row);
    return true;
  }
  return false;
}

}  // namespace tallyrun
