#include "core/grid/FlexGrid.h"

#include <algorithm>
#include <charconv>

#include "core/RuntimeError.h"
#include "core/text/PlainNumber.h"

namespace tallyrun {
namespace {

constexpr int kDefaultColWidth = 960;        // twips
constexpr int kDefaultCharacterWidth = 120;  // twips, until a view gives its font
// Below this many texts a pool is not worth rebuilding.
constexpr std::size_t kSmallPool = 1024;

}  // namespace

FlexGrid::FlexGrid()
    : colWidths_(1, kDefaultColWidth), measurer_(TextMeasurer::FixedWidth(kDefaultCharacterWidth)) {
  cells_.SetCols(1);
  cells_.SetRows(1);
}

void FlexGrid::RaiseOutOfRange() { throw RuntimeError(ErrorKind::SubscriptOutOfRange); }

void FlexGrid::SetRows(int rows) {
  if (rows < 1) throw RuntimeError(ErrorKind::InvalidCall);
  const bool shrinks = rows < Rows();
  cells_.SetRows(static_cast<std::size_t>(rows));
  DrawInside(topRow_);
  if (shrinks) ForgetUnusedTexts();
}

void FlexGrid::SetCols(int cols) {
  if (cols < 1) throw RuntimeError(ErrorKind::InvalidCall);
  colWidths_.reserve(static_cast<std::size_t>(cols));
  cells_.SetCols(static_cast<std::size_t>(cols));
  colWidths_.resize(static_cast<std::size_t>(cols), kDefaultColWidth);
  DrawInside(topRow_);
  ForgetUnusedTexts();
}

void FlexGrid::RemoveRows(int first, int last) {
  RequireRow(first);
  RequireRow(last);
  if (first < 1 || last < first) throw RuntimeError(ErrorKind::InvalidCall);
  cells_.RemoveRows(static_cast<std::size_t>(first), static_cast<std::size_t>(last));
  const int removed = last - first + 1;
  int top = topRow_;
  for (int* const row : {&row_, &rowSel_, &top}) {
    if (*row > last) {
      *row -= removed;
    } else if (*row > first) {
      *row = first;
    }
  }
  DrawInside(top);
  ForgetUnusedTexts();
}

std::string FlexGrid::Text(int row, int col) const {
  CellScratch scratch;
  return std::string(View(row, col, scratch));
}

void FlexGrid::SetText(int row, int col, std::string_view text) {
  RequireRow(row);
  RequireCol(col);
  SetCell(row, col, Intern(text));
}

std::string_view FlexGrid::WriteNumber(CellValue number, CellScratch& scratch) {
  const char* const end =
      std::to_chars(scratch.data(), scratch.data() + scratch.size(), NumberOf(number)).ptr;
  return {scratch.data(), static_cast<std::size_t>(end - scratch.data())};
}

CellValue FlexGrid::Intern(std::string_view text) {
  if (const auto number = PlainNumber(text)) return NumberCell(static_cast<int>(*number));
  return static_cast<CellValue>(pool_.Intern(text));
}

FlexGrid::Interning::Interning(const FlexGrid& grid, std::string_view text) {
  if (const auto number = PlainNumber(text)) {
    cell_ = NumberCell(static_cast<int>(*number));
  } else {
    key_ = TextKey(text);
    grid.pool_.Prefetch(key_);
  }
}

CellValue FlexGrid::InternNumber(std::int32_t number) {
  constexpr std::int32_t kFirstTooLong = 1'000'000'000;
  if (number >= 0 && number < kFirstTooLong) return NumberCell(number);
  return Intern(std::to_string(number));
}

void FlexGrid::ReorderRows(const std::vector<std::uint32_t>& order) {
  RequireEveryRowOnce(order);
  cells_.ReorderRows(order);
  MarkChanged();
}

void FlexGrid::RequireEveryRowOnce(const std::vector<std::uint32_t>& order) const {
  if (order.size() + 1 != cells_.Rows()) {
    throw RuntimeError(ErrorKind::InvalidCall);
  }
  std::vector<bool> isThere(order.size() + 1);
  for (const std::uint32_t row : order) {
    if (row < 1 || row > order.size()) RaiseOutOfRange();
    if (isThere[row]) throw RuntimeError(ErrorKind::InvalidCall);
    isThere[row] = true;
  }
}

int FlexGrid::ColWidth(int col) const {
  RequireCol(col);
  return colWidths_[static_cast<std::size_t>(col)];
}

void FlexGrid::SetColWidth(int col, int twips) {
  RequireCol(col);
  if (twips < 0) throw RuntimeError(ErrorKind::InvalidCall);
  colWidths_[static_cast<std::size_t>(col)] = twips;
  MarkChanged();
}

void FlexGrid::SetRow(int row) {
  RequireRow(row);
  row_ = rowSel_ = row;
  colSel_ = col_;
  MarkChanged();
}

void FlexGrid::SetCol(int col) {
  RequireCol(col);
  col_ = colSel_ = col;
  rowSel_ = row_;
  MarkChanged();
}

void FlexGrid::SetRowSel(int row) {
  RequireRow(row);
  rowSel_ = row;
  MarkChanged();
}

void FlexGrid::SetColSel(int col) {
  RequireCol(col);
  colSel_ = col;
  MarkChanged();
}

void FlexGrid::SelectRow(int row) {
  SetRow(row);
  SetCol(0);
  SetColSel(Cols() - 1);
}

int FlexGrid::MaxTopRow() const { return std::max(1, Rows() - pageRows_); }

void FlexGrid::SetTopRow(int row) {
  const int top = std::clamp(row, 1, MaxTopRow());
  if (top == topRow_) return;
  topRow_ = top;
  MarkChanged();
  if (observer_ != nullptr) observer_->GridScrolled();
}

void FlexGrid::SetLeftCol(int col) {
  const int left = std::clamp(col, 0, Cols() - 1);
  if (left == leftCol_) return;
  leftCol_ = left;
  MarkChanged();
  if (observer_ != nullptr) observer_->GridScrolled();
}

void FlexGrid::SetPageRows(int rows) {
  if (std::max(1, rows) == pageRows_) return;
  pageRows_ = std::max(1, rows);
  SetTopRow(topRow_);
  MarkChanged();
}

bool FlexGrid::TakeChanges() {
  const bool changed = changed_;
  changed_ = false;
  return changed;
}

void FlexGrid::DrawInside(int topRow) {
  // While there is a data row, the captions are no place for the current cell.
  const int firstRow = Rows() > 1 ? 1 : 0;
  row_ = std::clamp(row_, firstRow, Rows() - 1);
  rowSel_ = std::clamp(rowSel_, firstRow, Rows() - 1);
  col_ = std::min(col_, Cols() - 1);
  colSel_ = std::min(colSel_, Cols() - 1);
  MarkChanged();
  SetTopRow(topRow);
  SetLeftCol(leftCol_);
}

// Once most of the pool's texts stand in no cell any more, it begins anew with those that do.
void FlexGrid::ForgetUnusedTexts() {
  if (pool_.Size() <= kSmallPool || pool_.Size() / 4 <= cells_.Size()) return;
  TextPool used;
  const auto forEachText = [this](auto take) {
    for (std::size_t col = 0; col < cells_.Cols(); ++col) {
      for (CellValue& cell : cells_.Column(col)) {
        if (!IsNumber(cell)) take(cell);
      }
    }
  };
  forEachText([&](CellValue cell) { used.Intern(TextOf(cell)); });
  forEachText([&](CellValue& cell) { cell = static_cast<CellValue>(used.Intern(TextOf(cell))); });
  try {
    // The same texts in the same order have the same numbers in the pool that has the room.
    pool_.Clear();
    for (TextPool::Id id = 1; id < used.Size(); ++id) pool_.Intern(used.View(id));
  } catch (...) {
    pool_ = std::move(used);
  }
}

}  // namespace tallyrun
