#include "core/FlexGrid.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "core/RuntimeError.h"

namespace tallyrun {
namespace {

constexpr std::uint32_t kNumberBit = 0x80000000u;
constexpr std::size_t kMaxNumberDigits = 9;
constexpr int kDefaultColWidth = 960;        // twips
constexpr int kDefaultCharacterWidth = 120;  // twips, until a view gives its font
// Below this many texts a pool is not worth rebuilding.
constexpr std::size_t kSmallPool = 1024;

// The number that `text` is the plain decimal writing of: digits alone, no leading zero.
std::optional<std::uint32_t> PlainNumber(std::string_view text) {
  if (text.empty() || text.size() > kMaxNumberDigits) return std::nullopt;
  if (text.front() == '0' && text.size() > 1) return std::nullopt;
  std::uint32_t number = 0;
  for (const char character : text) {
    if (character < '0' || character > '9') return std::nullopt;
    number = number * 10 + static_cast<std::uint32_t>(character - '0');
  }
  return number;
}

}  // namespace

FlexGrid::FlexGrid()
    : cells_(1, CellValue::Empty),
      colWidths_(1, kDefaultColWidth),
      measurer_(TextMeasurer::FixedWidth(kDefaultCharacterWidth)) {}

void FlexGrid::RequireRow(int row) const {
  if (row < 0 || row >= rows_) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
}

void FlexGrid::RequireCol(int col) const {
  if (col < 0 || col >= cols_) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
}

std::size_t FlexGrid::IndexOf(int row, int col) const {
  RequireRow(row);
  RequireCol(col);
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
         static_cast<std::size_t>(col);
}

void FlexGrid::SetRows(int rows) {
  if (rows < 1) throw RuntimeError(ErrorKind::InvalidCall);
  const std::size_t cells = static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols_);
  const bool shrinksMuch = cells < cells_.size() / 4;
  cells_.resize(cells, CellValue::Empty);
  if (shrinksMuch) cells_.shrink_to_fit();
  rows_ = rows;
  if (pool_.Size() > kSmallPool && pool_.Size() / 4 > cells) CompactPool();
  DrawInside();
  MarkChanged();
}

void FlexGrid::SetCols(int cols) {
  if (cols < 1) throw RuntimeError(ErrorKind::InvalidCall);
  if (cols != cols_) {
    std::vector<CellValue> reshaped(
        static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols), CellValue::Empty);
    const int kept = std::min(cols, cols_);
    for (int row = 0; row < rows_; ++row) {
      const auto from = cells_.begin() + static_cast<std::ptrdiff_t>(IndexOf(row, 0));
      std::copy_n(
          from, kept,
          reshaped.begin() + static_cast<std::ptrdiff_t>(row) * static_cast<std::ptrdiff_t>(cols));
    }
    cells_ = std::move(reshaped);
    cols_ = cols;
    colWidths_.resize(static_cast<std::size_t>(cols), kDefaultColWidth);
  }
  DrawInside();
  MarkChanged();
}

void FlexGrid::RemoveRows(int first, int last) {
  RequireRow(first);
  RequireRow(last);
  if (first < 1 || last < first) throw RuntimeError(ErrorKind::InvalidCall);
  const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(IndexOf(first, 0));
  const auto end = cells_.begin() + static_cast<std::ptrdiff_t>(IndexOf(last, 0)) + cols_;
  cells_.erase(begin, end);
  rows_ -= last - first + 1;
  DrawInside();
  MarkChanged();
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

std::string_view FlexGrid::View(CellValue value, CellScratch& scratch) const {
  const std::uint32_t bits = static_cast<std::uint32_t>(value);
  if ((bits & kNumberBit) == 0) return pool_.View(bits);
  const auto end =
      std::to_chars(scratch.data(), scratch.data() + scratch.size(), bits & ~kNumberBit).ptr;
  return {scratch.data(), static_cast<std::size_t>(end - scratch.data())};
}

CellValue FlexGrid::Intern(std::string_view text) {
  if (const auto number = PlainNumber(text)) return static_cast<CellValue>(*number | kNumberBit);
  return static_cast<CellValue>(pool_.Intern(text));
}

void FlexGrid::ReorderRows(const std::vector<std::uint32_t>& order) {
  if (order.size() != static_cast<std::size_t>(rows_ - 1)) {
    throw RuntimeError(ErrorKind::InvalidCall);
  }
  std::vector<CellValue> sorted;
  sorted.reserve(cells_.size());
  sorted.insert(sorted.end(), cells_.begin(), cells_.begin() + cols_);
  for (const std::uint32_t row : order) {
    const auto from =
        cells_.begin() + static_cast<std::ptrdiff_t>(IndexOf(static_cast<int>(row), 0));
    sorted.insert(sorted.end(), from, from + cols_);
  }
  cells_ = std::move(sorted);
  MarkChanged();
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
  pageRows_ = std::max(1, rows);
  SetTopRow(topRow_);
  MarkChanged();
}

bool FlexGrid::TakeChanges() {
  const bool changed = changed_;
  changed_ = false;
  return changed;
}

void FlexGrid::DrawInside() {
  row_ = std::min(row_, rows_ - 1);
  rowSel_ = std::min(rowSel_, rows_ - 1);
  col_ = std::min(col_, cols_ - 1);
  colSel_ = std::min(colSel_, cols_ - 1);
  if (row_ == 0 && rows_ > 1) row_ = rowSel_ = 1;
  SetTopRow(topRow_);
  SetLeftCol(leftCol_);
}

void FlexGrid::CompactPool() {
  TextPool compact;
  for (CellValue& cell : cells_) {
    const std::uint32_t bits = static_cast<std::uint32_t>(cell);
    if ((bits & kNumberBit) == 0) cell = static_cast<CellValue>(compact.Intern(pool_.View(bits)));
  }
  pool_ = std::move(compact);
}

}  // namespace tallyrun
