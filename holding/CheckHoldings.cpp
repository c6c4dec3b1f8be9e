#include "holding/CheckHoldings.h"

#include <exception>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/Application.h"
#include "core/Conversion.h"
#include "core/EntryRow.h"
#include "core/Platform.h"
#include "core/modFileIO.h"
#include "holding/FramePacer.h"
#include "holding/HoldingFile.h"
#include "holding/HoldingSearch.h"

namespace tallyrun {

std::string HoldingMessage;

namespace {

constexpr int kNoRow = 0;

// The sheet's distinct pairs of BO ID and ISIN, and which of them each row holds.
class SheetHoldings {
 public:
  explicit SheetHoldings(const FlexGrid& grid) : grid_(grid) {
    pairOfRow_.resize(static_cast<std::size_t>(grid.Rows()));
    for (int row = 1; row < grid.Rows(); ++row) {
      pairOfRow_[static_cast<std::size_t>(row)] =
          PairOf(grid.Cell(row, EntryColumn::kBoId), grid.Cell(row, EntryColumn::kIsinCode));
    }
  }

  void FindIn(const HoldingFile& file) { lines_ = FindHoldings(file, query_); }
  const std::optional<std::string_view>& LineOf(int row) const {
    return lines_[pairOfRow_[static_cast<std::size_t>(row)]];
  }

 private:
  using Numbers = std::unordered_map<CellValue, std::uint32_t>;

  std::uint32_t PairOf(CellValue boId, CellValue isin) {
    const HoldingQuery::Pair pair{NumberOf(boId, boIdNumbers_, query_.boIds),
                                  NumberOf(isin, isinNumbers_, query_.isins)};
    const std::uint64_t key = std::uint64_t{pair.boId} << 32 | pair.isin;
    const auto [place, isNew] =
        pairNumbers_.emplace(key, static_cast<std::uint32_t>(query_.pairs.size()));
    if (isNew) query_.pairs.push_back(pair);
    return place->second;
  }

  std::uint32_t NumberOf(CellValue cell, Numbers& numbers, std::vector<std::string>& texts) {
    const auto [place, isNew] = numbers.emplace(cell, static_cast<std::uint32_t>(texts.size()));
    CellScratch scratch;
    if (isNew) texts.emplace_back(grid_.View(cell, scratch));
    return place->second;
  }

  const FlexGrid& grid_;
  HoldingQuery query_;
  Numbers boIdNumbers_;
  Numbers isinNumbers_;
  std::unordered_map<std::uint64_t, std::uint32_t> pairNumbers_;
  std::vector<std::uint32_t> pairOfRow_;
  std::vector<std::optional<std::string_view>> lines_;
};

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
  RowCheck(const FlexGrid& grid, const SheetHoldings& holdings)
      : grid_(grid), holdings_(holdings) {}

  // True when the row's holding covers what it and the equal rows just before it ask for.
  bool Passes(int row) {
    CellScratch quantity, boId, isin;
    total_ = TotalWith(row, grid_.View(row, EntryColumn::kQuantity, quantity));
    return CompareHolding(holdings_.LineOf(row), grid_.View(row, EntryColumn::kBoId, boId),
                          grid_.View(row, EntryColumn::kIsinCode, isin), total_);
  }

 private:
  std::int32_t TotalWith(int row, std::string_view quantity) const {
    const bool continues = row > 1 && IsSameHolding(grid_, row, row - 1);
    return continues ? RoundToInt32(total_ + ToDouble(quantity)) : ToInt32(quantity);
  }

  const FlexGrid& grid_;
  const SheetHoldings& holdings_;
  std::int32_t total_ = 0;
};

// Checks every row, showing each as it goes. The first row that failed, or kNoRow; an error
// leaves the row it was met in selected.
int FindFirstFailingRow(const HoldingCheck& check, const SheetHoldings& holdings) {
  FlexGrid& grid = check.entries;
  RowCheck rows(grid, holdings);
  FramePacer pacer;
  int firstFailing = kNoRow;
  int row = 1;
  try {
    for (; row < grid.Rows(); ++row) {
      if (pacer.IsDue(FramePacer::Clock::now())) {
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

bool CheckAgainst(const HoldingCheck& check, const HoldingFile& file) {
  check.window.SetCaption(CaptionFor("...Checking balance on " + std::string(file.Subject())));
  HoldingMessage.clear();
  SheetHoldings holdings(check.entries);
  holdings.FindIn(file);
  const bool failed = FindFirstFailingRow(check, holdings) != kNoRow;
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
    return CheckAgainst(check, HoldingFile(ReadWholeFile(path)));
  } catch (const std::exception&) {
    EndBusy(check.window, check.savedCaption);
    Tell("Error checking BO account holding balance.", "Holding Check Error.",
         MessageIcon::Critical);
    return true;
  }
}

bool CompareHolding(const std::optional<std::string_view>& holdingLine, std::string_view boId,
                    std::string_view isin, std::int32_t quantity) {
  const auto add = [&](const std::string& problem) {
    HoldingMessage.append(boId).append(" ").append(isin).append(problem).append("\r\n");
  };
  if (!holdingLine) {
    add(" holding balance missing.");
    return false;
  }
  const std::string_view balance = HoldingFile::BalanceOf(*holdingLine);
  if (quantity <= ToDouble(balance)) return true;
  add(" holding insufficient. " + EntryMode.name + " quantity : " + std::to_string(quantity) +
      " Holding balance : " + std::string(balance));
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
