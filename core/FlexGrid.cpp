#include "core/FlexGrid.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "core/RuntimeError.h"

namespace tallyrun {
namespace {

constexpr std::size_t kMaxNumberDigits = 9;
constexpr int kDefaultColWidth = 960;        // twips
constexpr int kDefaultCharacterWidth = 120;  // twips, until a view gives its font
// Below this many texts a pool is not worth rebuilding.
constexpr std::size_t kSmallPool = 1024;

// The number that `text` is the plain decimal writing of: digits alone, no leading zero.
std::optional<int> PlainNumber(std::string_view text) {
  if (text.empty() || text.size() > kMaxNumberDigits) return std::nullopt;
  if (text.front() == '0' && text.size() > 1) return std::nullopt;
  int number = 0;
  for (const char character : text) {
    if (character < '0' || character > '9') return std::nullopt;
    number = number * 10 + (character - '0');
  }
  return number;
}

}  // namespace

FlexGrid::FlexGrid()
    : cells_(1, CellValue::Empty),
      colWidths_(1, kDefaultColWidth),
      measurer_(TextMeasurer::FixedWidth(kDefaultCharacterWidth)) {}

void FlexGrid::RaiseOutOfRange() { throw RuntimeError(ErrorKind::SubscriptOutOfRange); }

void FlexGrid::SetRows(int rows) {
  if (rows < 1) throw RuntimeError(ErrorKind::InvalidCall);
  cells_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols_), CellValue::Empty);
  const bool shrinks = rows < rows_;
  rows_ = rows;
  DrawInside(topRow_);
  if (shrinks) ReleaseUnused();
}

void FlexGrid::SetCols(int cols) {
  if (cols < 1) throw RuntimeError(ErrorKind::InvalidCall);
  if (cols != cols_) {
    std::vector<CellValue> reshaped(
        static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols), CellValue::Empty);
    auto from = cells_.cbegin();
    auto to = reshaped.begin();
    for (int row = 0; row < rows_; ++row, from += cols_, to += cols) {
      std::copy_n(from, std::min(cols, cols_), to);
    }
    colWidths_.resize(static_cast<std::size_t>(cols), kDefaultColWidth);
    cells_ = std::move(reshaped);
    cols_ = cols;
  }
  DrawInside(topRow_);
  ReleaseUnused();
}

void FlexGrid::RemoveRows(int first, int last) {
  RequireRow(first);
  RequireRow(last);
  if (first < 1 || last < first) throw RuntimeError(ErrorKind::InvalidCall);
  const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(IndexOf(first, 0));
  const auto end = cells_.begin() + static_cast<std::ptrdiff_t>(IndexOf(last, 0)) + cols_;
  cells_.erase(begin, end);
  const int removed = last - first + 1;
  rows_ -= removed;
  int top = topRow_;
  for (int* const row : {&row_, &rowSel_, &top}) {
    if (*row > last) {
      *row -= removed;
    } else if (*row > first) {
      *row = first;
    }
  }
  DrawInside(top);
  ReleaseUnused();
}

std::string FlexGrid::Text(int row, int col) const {
  CellScratch scratch;
  return std::string(View(row, col, scratch));
}

void FlexGrid::SetText(int row, int col, std::string_view text) {
  const std::size_t index = IndexOf(row, col);
  cells_[index] = Intern(text);
  MarkChanged();
}

std::string_view FlexGrid::WriteNumber(CellValue number, CellScratch& scratch) {
  const auto end =
      std::to_chars(scratch.data(), scratch.data() + scratch.size(), NumberOf(number)).ptr;
  return {scratch.data(), static_cast<std::size_t>(end - scratch.data())};
}

CellValue FlexGrid::Intern(std::string_view text) {
  if (const auto number = PlainNumber(text)) return NumberCell(*number);
  return static_cast<CellValue>(pool_.Intern(text));
}

FlexGrid::Interning::Interning(const FlexGrid& grid, std::string_view text) {
  if (const auto number = PlainNumber(text)) {
    cell_ = NumberCell(*number);
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

void FlexGrid::ReorderRows(std::vector<std::uint32_t> order) {
  RequireEveryRowOnce(order);
  const auto cols = static_cast<std::size_t>(cols_);
  const auto rowAt = [this, cols](std::size_t row) { return cells_.data() + row * cols; };
  // Follows each ring of rows that take one another's place, so that a million rows are moved
  // without a second sheet to move them to. A ring jumps about in memory: what it comes to next
  // but a few is fetched on the way.
  constexpr int kAhead = 8;
  const auto next = [&order](std::uint32_t row) { return order[row - 1]; };
  std::vector<CellValue> kept(cols);
  for (std::uint32_t first = 1; first <= order.size(); ++first) {
    if (next(first) == first) continue;
    std::copy_n(rowAt(first), cols, kept.begin());
    std::uint32_t ahead = first;
    for (int step = 0; step < kAhead; ++step) ahead = next(ahead);
    std::uint32_t row = first;
    while (next(row) != first) {
      const std::uint32_t from = next(row);
      __builtin_prefetch(rowAt(ahead));
      ahead = next(ahead);
      std::copy_n(rowAt(from), cols, rowAt(row));
      order[row - 1] = row;
      row = from;
    }
    std::copy_n(kept.begin(), cols, rowAt(row));
    order[row - 1] = row;
  }
  MarkChanged();
}

void FlexGrid::RequireEveryRowOnce(const std::vector<std::uint32_t>& order) const {
  if (order.size() != static_cast<std::size_t>(rows_ - 1)) {
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
  SetColSel(cols_ - 1);
}

int FlexGrid::MaxTopRow() const { return std::max(1, rows_ - pageRows_); }

void FlexGrid::SetTopRow(int row) {
  const int top = std::clamp(row, 1, MaxTopRow());
  if (top == topRow_) return;
  topRow_ = top;
  MarkChanged();
  if (observer_ != nullptr) observer_->GridScrolled();
}

void FlexGrid::SetLeftCol(int col) {
  const int left = std::clamp(col, 0, cols_ - 1);
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
  const int firstRow = rows_ > 1 ? 1 : 0;
  row_ = std::clamp(row_, firstRow, rows_ - 1);
  rowSel_ = std::clamp(rowSel_, firstRow, rows_ - 1);
  col_ = std::min(col_, cols_ - 1);
  colSel_ = std::min(colSel_, cols_ - 1);
  MarkChanged();
  SetTopRow(topRow);
  SetLeftCol(leftCol_);
}

// Gives back what a much larger sheet left behind. Happens at most once per quartering, so that
// taking rows off one by one stays cheap.
void FlexGrid::ReleaseUnused() {
  if (cells_.size() < cells_.capacity() / 4) cells_.shrink_to_fit();
  if (pool_.Size() <= kSmallPool || pool_.Size() / 4 <= cells_.size()) return;
  TextPool pool;
  std::vector<CellValue> cells = cells_;
  for (CellValue& cell : cells) {
    if (IsNumber(cell)) continue;
    cell = static_cast<CellValue>(pool.Intern(TextOf(cell)));
  }
  pool_ = std::move(pool);
  cells_ = std::move(cells);
}

}  // namespace tallyrun
