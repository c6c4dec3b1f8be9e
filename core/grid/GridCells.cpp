#include "core/grid/GridCells.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/RuntimeError.h"

namespace tallyrun {
namespace {

constexpr int kDefaultColWidth = 960;        // twips
constexpr int kDefaultCharacterWidth = 120;  // twips, until a view gives its font
// Fewer texts than these are not worth storing anew.
constexpr std::size_t kFewTexts = 1024;

TextTable WithEmptyText() {
  TextTable texts;
  texts.Intern("");
  return texts;
}

void RequireEveryRowOnce(const std::vector<std::uint32_t>& order, int rows) {
  std::vector<bool> isThere(order.size() + 1);
  isThere[0] = true;
  bool isEachOnce = order.size() + 1 == static_cast<std::size_t>(rows);
  for (const std::uint32_t row : order) {
    isEachOnce = isEachOnce && row < isThere.size() && !isThere[row];
    if (!isEachOnce) throw RuntimeError(ErrorKind::InvalidCall);
    isThere[row] = true;
  }
}

}  // namespace

GridCells::GridCells()
    : columns_(1, std::vector<CellValue>(1)),
      texts_(WithEmptyText()),
      colWidths_(1, kDefaultColWidth),
      measurer_(TextMeasurer::FixedWidth(kDefaultCharacterWidth)) {}

void GridCells::RaiseOutOfRange() { throw RuntimeError(ErrorKind::SubscriptOutOfRange); }

void GridCells::SetText(int row, int col, std::string_view text) {
  RequireInside(row, col);
  SetCell(row, col, Intern(text));
}

CellValue GridCells::Intern(std::string_view text) {
  if (text.empty()) return CellValue::Empty;
  if (const auto number = PlainNumberCell(text)) return *number;
  // A text's number leaves the top bit free.
  if (texts_.Size() > std::numeric_limits<std::uint32_t>::max() / 2) {
    throw RuntimeError(ErrorKind::OutOfMemory);
  }
  return static_cast<CellValue>(texts_.Intern(text));
}

void GridCells::ReorderRows(const std::vector<std::uint32_t>& order) {
  RequireEveryRowOnce(order, Rows());
  // Made before anything moves: a sheet must not be left with some of its columns reordered.
  std::vector<CellValue> reordered(columns_.front().size());
  for (std::vector<CellValue>& column : columns_) {
    reordered[0] = column[0];
    for (std::size_t at = 0; at < order.size(); ++at) reordered[at + 1] = column[order[at]];
    column.swap(reordered);
  }
  MarkChanged();
}

int GridCells::ColWidth(int col) const {
  RequireInside(0, col);
  return colWidths_[static_cast<std::size_t>(col)];
}

void GridCells::SetColWidth(int col, int twips) {
  RequireInside(0, col);
  if (twips < 0) throw RuntimeError(ErrorKind::InvalidCall);
  colWidths_[static_cast<std::size_t>(col)] = twips;
  MarkChanged();
}

bool GridCells::TakeChanges() { return std::exchange(changed_, false); }

void GridCells::ResizeRows(int rows) {
  const auto count = static_cast<std::size_t>(rows);
  // All columns get their room before any of them grows.
  for (auto& column : columns_) {
    if (count > column.capacity()) column.reserve(std::max(count, column.size() * 3 / 2));
  }
  for (auto& column : columns_) column.resize(count);
}

void GridCells::ResizeCols(int cols) {
  const auto count = static_cast<std::size_t>(cols);
  colWidths_.reserve(count);
  columns_.resize(count, std::vector<CellValue>(columns_.front().size()));
  colWidths_.resize(count, kDefaultColWidth);
}

void GridCells::EraseRows(int first, int last) {
  for (auto& column : columns_) column.erase(column.begin() + first, column.begin() + last + 1);
}

void GridCells::ForgetUnusedTexts() {
  const std::size_t cells = columns_.size() * columns_.front().size();
  if (texts_.Size() <= kFewTexts || texts_.Size() / 4 <= cells) return;
  const auto forEachText = [this](auto take) {
    for (auto& column : columns_) {
      for (CellValue& cell : column) {
        if (!IsNumber(cell)) take(cell);
      }
    }
  };
  // No cell changes before all that can fail is done.
  TextTable used = WithEmptyText();
  forEachText([&](CellValue cell) { used.Intern(Text(cell)); });
  forEachText([&](CellValue& cell) { cell = static_cast<CellValue>(*used.Find(Text(cell))); });
  texts_ = std::move(used);
}

}  // namespace tallyrun
