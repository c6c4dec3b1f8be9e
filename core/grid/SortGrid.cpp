#include "core/grid/SortGrid.h"

#include <algorithm>
#include <bit>
#include <span>
#include <string_view>
#include <utility>

#include "core/TwoThreads.h"
#include "core/grid/ColumnRanks.h"
#include "core/grid/RadixSort.h"

namespace tallyrun {
namespace {

// The places of texts that the last sort worked out. A sheet is sorted again by every step of the
// day and mostly is in order already; that is seen without comparing a text.
struct KnownPlaces {
  std::uint64_t texts = 0;  // the edition of the grid's texts that they are the places of
  std::vector<SortKey> keys;
  std::vector<std::vector<std::uint32_t>> ofTexts;  // by key and the text's number

  bool AreOf(const FlexGrid& grid, const std::vector<SortKey>& sortKeys) const {
    return texts == grid.TextEdition() && keys == sortKeys;
  }
};

KnownPlaces knownPlaces;

// Below 0 when the left one is less, above 0 when the right one is.
template <class Value>
int OrderOf(Value left, Value right) {
  if (left < right) return -1;
  return left > right ? 1 : 0;
}

// One key's column, compared row with row.
class KeyColumn {
 public:
  KeyColumn(const FlexGrid& grid, const SortKey& key, std::span<const std::uint32_t> places)
      : grid_(grid), key_(key), cells_(grid.ColumnCells(key.col)), places_(places) {}

  // Below 0 when the row before this one comes first in the key's order, 0 when neither does.
  int CompareWithRowBefore(std::size_t row) const {
    const CellValue left = cells_[row - 1];
    const CellValue right = cells_[row];
    if (left == right) return 0;
    const std::uint32_t leftPlace = PlaceOf(left);
    const std::uint32_t rightPlace = PlaceOf(right);
    if (leftPlace != ColumnRanks::kNone && rightPlace != ColumnRanks::kNone) {
      return OrderOf(leftPlace, rightPlace);
    }
    const int order = Compare(left, right);
    return key_.descending ? -order : order;
  }

  // Fetches what a comparison with this row will look at.
  void Prefetch(std::size_t row) const {
    const auto text = static_cast<std::size_t>(cells_[row]);
    if (text < places_.size()) __builtin_prefetch(&places_[text]);
  }

 private:
  std::uint32_t PlaceOf(CellValue value) const {
    const auto text = static_cast<std::size_t>(value);  // a number's is past all texts
    return text < places_.size() ? places_[text] : ColumnRanks::kNone;
  }

  int Compare(CellValue left, CellValue right) const {
    if (key_.numeric && IsNumber(left) && IsNumber(right)) return left < right ? -1 : 1;
    CellScratch leftScratch;
    CellScratch rightScratch;
    const std::string_view leftText = grid_.View(left, leftScratch);
    const std::string_view rightText = grid_.View(right, rightScratch);
    if (!key_.numeric) return leftText.compare(rightText);
    const double leftNumber = SortingNumber(leftText);
    const double rightNumber = SortingNumber(rightText);
    return OrderOf(leftNumber, rightNumber);
  }

  const FlexGrid& grid_;
  const SortKey& key_;
  std::span<const CellValue> cells_;
  std::span<const std::uint32_t> places_;
};

bool IsSorted(const FlexGrid& grid, const std::vector<SortKey>& keys) {
  const bool isKnown = knownPlaces.AreOf(grid, keys);
  if (keys.empty()) return true;
  std::vector<KeyColumn> columns;
  for (std::size_t key = 0; key < keys.size(); ++key) {
    columns.emplace_back(grid, keys[key],
                         isKnown ? std::span<const std::uint32_t>(knownPlaces.ofTexts[key])
                                 : std::span<const std::uint32_t>());
  }
  const auto rows = static_cast<std::size_t>(grid.Rows());
  constexpr std::size_t kAhead = 64;
  for (std::size_t row = 2; row < rows; ++row) {
    if (isKnown && row + kAhead < rows) columns.front().Prefetch(row + kAhead);
    for (const KeyColumn& column : columns) {
      const int order = column.CompareWithRowBefore(row);
      if (order > 0) return false;
      if (order < 0) break;
    }
  }
  return true;
}

// The order of rows by all keys. A row's places in some keys stand in one word with its number, as
// many keys as there is room for: the last ones are sorted by first, the others after them, stably.
class RowOrder {
 public:
  RowOrder(const FlexGrid& grid, const std::vector<SortKey>& keys)
      : itemBits_(std::bit_width(static_cast<unsigned>(grid.Rows()))) {
    columns_.resize(keys.size());
    words_.resize(static_cast<std::size_t>(grid.Rows()) - 1);
    ForEachPiece(keys.size(), words_.size(), [&](std::size_t key) {
      columns_[key] = {grid.ColumnCells(keys[key].col), ColumnRanks(grid, keys[key])};
    });
    KeepWhatOrders();
  }

  std::vector<std::uint32_t> Sorted() {
    const std::size_t pieces = (words_.size() + kWordsOfPiece - 1) / kWordsOfPiece;
    bool isFirst = true;
    for (std::size_t end = kept_.size(); end > 0; isFirst = false) {
      const std::size_t begin = FirstKeyBefore(end);
      ForEachPiece(pieces, words_.size(), [&](std::size_t piece) {
        const std::size_t first = piece * kWordsOfPiece;
        const std::size_t last = std::min(words_.size(), first + kWordsOfPiece);
        for (std::size_t at = first; at < last; ++at) {
          words_[at] = WordOf(isFirst ? at + 1 : RowOf(words_[at]), begin, end);
        }
      });
      RadixSort(words_, itemBits_);
      end = begin;
    }
    std::vector<std::uint32_t> order;
    order.reserve(words_.size());
    for (const std::uint64_t word : words_)
      order.push_back(static_cast<std::uint32_t>(RowOf(word)));
    return order;
  }

  std::vector<std::vector<std::uint32_t>> TakePlacesOfTexts() && {
    std::vector<std::vector<std::uint32_t>> places;
    for (Column& column : columns_) places.push_back(std::move(column.ranks).TakeTexts());
    return places;
  }

 private:
  struct Column {
    std::span<const CellValue> cells;
    ColumnRanks ranks;
  };

  // A key that follows from the one before it orders nothing more: an account's client code.
  void KeepWhatOrders() {
    for (std::size_t key = 0; key < columns_.size(); ++key) {
      if (kept_.empty() || !Follows(columns_[key], columns_[kept_.back()])) kept_.push_back(key);
    }
  }

  static bool Follows(const Column& column, const Column& from) {
    if (from.ranks.Bits() > kMostBitsToFollow) return false;
    std::vector<CellValue> values(std::size_t{1} << from.ranks.Bits(), kNoValue);
    for (std::size_t row = 1; row < column.cells.size(); ++row) {
      CellValue& value = values[from.ranks.Of(from.cells[row])];
      if (value == kNoValue) value = column.cells[row];
      if (value != column.cells[row]) return false;
    }
    return true;
  }

  // The first of the keys before `end` whose places fit into one word together.
  std::size_t FirstKeyBefore(std::size_t end) const {
    int bits = itemBits_;
    while (end > 0 && bits + columns_[kept_[end - 1]].ranks.Bits() <= 64) {
      bits += columns_[kept_[--end]].ranks.Bits();
    }
    return end;
  }

  // The first key's place is the major part.
  std::uint64_t WordOf(std::size_t row, std::size_t begin, std::size_t end) const {
    std::uint64_t word = 0;
    for (std::size_t key = begin; key < end; ++key) {
      const Column& column = columns_[kept_[key]];
      word = word << column.ranks.Bits() | column.ranks.Of(column.cells[row]);
    }
    return word << itemBits_ | row;
  }
  std::size_t RowOf(std::uint64_t word) const {
    return static_cast<std::size_t>(word & ((std::uint64_t{1} << itemBits_) - 1));
  }

  static constexpr CellValue kNoValue = CellValue{0x7FFFFFFF};  // no text has this number
  static constexpr int kMostBitsToFollow = 22;
  static constexpr std::size_t kWordsOfPiece = 4096;

  const int itemBits_;
  std::vector<Column> columns_;    // by key
  std::vector<std::size_t> kept_;  // the keys that order
  std::vector<std::uint64_t> words_;
};

}  // namespace

void SortGrid(FlexGrid& grid, const std::vector<SortKey>& keys) {
  if (IsSorted(grid, keys)) return;
  RowOrder order(grid, keys);
  grid.ReorderRows(order.Sorted());
  knownPlaces = {grid.TextEdition(), keys, std::move(order).TakePlacesOfTexts()};
}

}  // namespace tallyrun
