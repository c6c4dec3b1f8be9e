#include "holding/CheckHoldings.h"

#include <deque>
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
// Looking at the clock takes as long as checking a row.
constexpr int kRowsPerLook = 64;

// The BO IDs and ISINs that the sheet's rows hold, each once, and the holding line of every row.
class SheetHoldings {
 public:
  explicit SheetHoldings(const FlexGrid& grid) : boIds_(grid), isins_(grid) {
    query_.pairs.reserve(static_cast<std::size_t>(grid.Rows() - 1));
    for (int row = 1; row < grid.Rows(); ++row) {
      const auto cells = grid.RowCells(row);
      query_.pairs.push_back({boIds_.NumberOf(cells[EntryColumn::kBoId]),
                              isins_.NumberOf(cells[EntryColumn::kIsinCode])});
    }
    query_.boIds = boIds_.Texts();
    query_.isins = isins_.Texts();
  }

  void FindIn(const HoldingFile& file) { lines_ = FindHoldings(file, query_); }
  const std::optional<std::string_view>& LineOf(int row) const {
    return lines_[static_cast<std::size_t>(row) - 1];
  }

 private:
  // The distinct values of a column, numbered in the order in which they are met.
  class Distinct {
   public:
    explicit Distinct(const FlexGrid& grid) : grid_(grid), numbers_(grid.DistinctTexts(), kNew) {}

    std::uint32_t NumberOf(CellValue value) {
      if (IsNumber(value)) return NumberOfNumber(value);
      std::uint32_t& number = numbers_[static_cast<std::size_t>(value)];
      if (number == kNew) number = Add(grid_.TextOf(value));
      return number;
    }
    const std::vector<std::string_view>& Texts() const { return texts_; }

   private:
    static constexpr std::uint32_t kNew = UINT32_MAX;

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
    std::vector<std::uint32_t> numbers_;  // by the text's number in the grid
    std::unordered_map<CellValue, std::uint32_t> numbersOfNumbers_;
    std::deque<std::string> digits_;
    std::vector<std::string_view> texts_;
  };

  Distinct boIds_;
  Distinct isins_;
  HoldingQuery query_;
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
    total_ = TotalWith(row, grid_.Cell(row, EntryColumn::kQuantity));
    CellScratch boId, isin;
    return CompareHolding(holdings_.LineOf(row), grid_.View(row, EntryColumn::kBoId, boId),
                          grid_.View(row, EntryColumn::kIsinCode, isin), total_);
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
