#include "core/grid/ColumnRanks.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>
#include <string_view>

#include "core/grid/RadixSort.h"
#include "core/text/Conversion.h"

namespace tallyrun {
namespace {

// Those in the column, each once, sorted.
std::vector<std::uint32_t> DistinctNumbersOf(std::span<const CellValue> cells) {
  std::vector<std::uint64_t> all;
  for (const CellValue value : cells) {
    if (IsNumber(value)) all.push_back(NumberOf(value));
  }
  RadixSort(all, 0);
  all.erase(std::unique(all.begin(), all.end()), all.end());
  return {all.begin(), all.end()};
}

// A word that orders as the number does.
std::uint64_t OrderOf(double number) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);  // no negative zero
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// A word that orders as the eight characters from `begin` do; a shorter text comes first.
std::uint64_t OrderOf(std::string_view text, std::size_t begin) {
  std::uint64_t word = 0;
  for (std::size_t at = begin; at < begin + sizeof word; ++at) {
    word = word << 8 | (at < text.size() ? static_cast<unsigned char>(text[at]) : 0u);
  }
  return word;
}

// Codes of one kind mostly begin alike; what they have in common orders nothing.
std::size_t CommonBeginning(const FlexGrid& grid, const std::vector<CellValue>& values) {
  CellScratch firstScratch;
  CellScratch scratch;
  const std::string_view first = grid.View(values.front(), firstScratch);
  std::size_t common = first.size();
  for (const CellValue value : values) {
    const std::string_view text = grid.View(value, scratch);
    common = std::min(common, text.size());
    while (std::memcmp(first.data(), text.data(), common) != 0) --common;
  }
  return common;
}

// The values, each with a word that orders as it does; the items are their places in `values`.
std::vector<KeyedItem> WithOrder(const FlexGrid& grid, const SortKey& key,
                                 const std::vector<CellValue>& values) {
  const std::size_t common = key.numeric || values.empty() ? 0 : CommonBeginning(grid, values);
  std::vector<KeyedItem> items;
  items.reserve(values.size());
  CellScratch scratch;
  for (std::uint32_t at = 0; at < values.size(); ++at) {
    const std::string_view text = grid.View(values[at], scratch);
    const std::uint64_t order = key.numeric ? OrderOf(SortingNumber(text)) : OrderOf(text, common);
    items.push_back({key.descending ? ~order : order, at});
  }
  return items;
}

// Puts texts whose eight characters are alike in order by all of them.
void SortWithinEqualKeys(const FlexGrid& grid, const SortKey& key,
                         const std::vector<CellValue>& values, std::vector<KeyedItem>& items) {
  const auto before = [&](const KeyedItem& a, const KeyedItem& b) {
    CellScratch left;
    CellScratch right;
    const int order = grid.View(values[a.item], left).compare(grid.View(values[b.item], right));
    return key.descending ? order > 0 : order < 0;
  };
  for (auto begin = items.begin(); begin != items.end();) {
    const auto end = std::find_if(
        begin, items.end(), [begin](const KeyedItem& each) { return each.key != begin->key; });
    if (end - begin > 1) std::sort(begin, end, before);
    begin = end;
  }
}

// The texts of a column, each once, and what its numbers have in common.
struct DistinctValues {
  explicit DistinctValues(const FlexGrid& grid, std::span<const CellValue> cells) {
    std::vector<bool> isKnown(grid.DistinctTexts());
    for (const CellValue value : cells) {
      if (IsNumber(value)) {
        anyNumber = true;
        bitsOfNumbers |= NumberOf(value);
      } else if (!isKnown[static_cast<std::size_t>(value)]) {
        isKnown[static_cast<std::size_t>(value)] = true;
        texts.push_back(value);
      }
    }
  }

  std::vector<CellValue> texts;
  bool anyNumber = false;
  std::uint32_t bitsOfNumbers = 0;  // all bits that any number has
};

}  // namespace

double SortingNumber(std::string_view text) { return IsNumeric(text) ? ToDouble(text) : 0; }

ColumnRanks::ColumnRanks(const FlexGrid& grid, const SortKey& key) {
  const std::span<const CellValue> cells = grid.ColumnCells(key.col).subspan(1);
  DistinctValues distinct(grid, cells);
  if (key.numeric && distinct.texts.empty()) {
    areNumbersTheirRank_ = true;
    bits_ = std::bit_width(distinct.bitsOfNumbers);
    if (key.descending) flip_ = static_cast<std::uint32_t>((std::uint64_t{1} << bits_) - 1);
    return;
  }
  if (distinct.anyNumber) numbers_ = DistinctNumbersOf(cells);

  std::vector<CellValue> values = std::move(distinct.texts);
  const std::size_t textCount = values.size();
  for (const std::uint32_t number : numbers_)
    values.push_back(NumberCell(static_cast<int>(number)));
  std::vector<KeyedItem> items = WithOrder(grid, key, values);
  RadixSort(items);
  if (!key.numeric) SortWithinEqualKeys(grid, key, values, items);

  texts_.assign(grid.DistinctTexts(), kNone);
  numberRanks_.resize(numbers_.size());
  std::uint32_t rank = 0;
  for (std::size_t at = 0; at < items.size(); ++at) {
    // Distinct texts never compare as equal, numbers in different writings do.
    if (at > 0 && (!key.numeric || items[at].key != items[at - 1].key)) ++rank;
    const std::size_t value = items[at].item;
    if (value < textCount) {
      texts_[static_cast<std::size_t>(values[value])] = rank;
    } else {
      numberRanks_[value - textCount] = rank;
    }
  }
  bits_ = std::bit_width(rank);
}

std::uint32_t ColumnRanks::OfNumber(std::uint32_t number) const {
  const auto place = std::lower_bound(numbers_.begin(), numbers_.end(), number);
  return numberRanks_[static_cast<std::size_t>(place - numbers_.begin())];
}

}  // namespace tallyrun
