// The inner pieces alone, with Google Benchmark: micro [--benchmark_filter=...]. Each works on what
// a large day brings, so that caches are as cold or warm as they are then.
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "bench/DayFiles.h"
#include "core/entry/EntryRow.h"
#include "core/entry/SortEntries.h"
#include "core/grid/FlexGrid.h"
#include "core/grid/GridGeometry.h"
#include "core/masterlists/Lists.h"
#include "core/masterlists/Lookups.h"

namespace tallyrun::bench {
namespace {

constexpr DaySize kSize = {100'000, 10'000, 2'000, 50'000};

const DayFiles& Files() {
  static const DayFiles files(kSize, 1);
  return files;
}

void LoadLists() {
  ReadBoList(Files().BoList());
  ReadIsinList(Files().IsinList());
}

std::vector<std::string> FieldsOf(const RecordList& list, int field) {
  std::vector<std::string> texts;
  for (int record = 2; record <= list.Count(); ++record) {
    texts.emplace_back(list.Field(record, field));
  }
  return texts;
}

void LookUp(benchmark::State& state, int field, const std::string& ending,
            std::string (*lookup)(std::string_view)) {
  LoadLists();
  const RecordList& list =
      field == BoField::kClientCode ? static_cast<const RecordList&>(BoList) : IsinList;
  std::vector<std::string> texts = FieldsOf(list, field);
  for (std::string& text : texts) text += ending;
  std::size_t at = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(lookup(texts[at]));
    at = (at + 7919) % texts.size();
  }
}
BENCHMARK_CAPTURE(LookUp, ClientCodeHit, BoField::kClientCode, "", LookupBoIdByClientCode);
BENCHMARK_CAPTURE(LookUp, ClientCodeMiss, BoField::kClientCode, "x", LookupBoIdByClientCode);
BENCHMARK_CAPTURE(LookUp, ScripHit, IsinField::kScripId, "", LookupIsinCodeByScrip);
BENCHMARK_CAPTURE(LookUp, ScripMiss, IsinField::kScripId, "x", LookupIsinCodeByScrip);

// Rows as an import leaves them: accounts and securities in no order.
void FillSheet(FlexGrid& grid) {
  Random random(1);
  grid.SetCols(EntryColumn::kCount);
  grid.SetRows(static_cast<int>(kSize.trades) + 1);
  for (int row = 1; row < grid.Rows(); ++row) {
    const std::uint32_t account = random.Below(kSize.accounts);
    grid.SetText(row, EntryColumn::kBoId, "77023100" + std::to_string(10'000'000 + account));
    grid.SetText(row, EntryColumn::kClientCode, "C" + std::to_string(account));
    grid.SetText(row, EntryColumn::kIsinCode,
                 "QK0001" + std::to_string(100'000 + random.Below(kSize.securities)));
    grid.SetText(row, EntryColumn::kQuantity, std::to_string(5 + random.Below(2000)));
  }
}

void SortUnorderedSheet(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    FlexGrid grid;
    FillSheet(grid);
    state.ResumeTiming();
    SortEntries(grid);
  }
  state.SetItemsProcessed(state.iterations() * kSize.trades);
}
BENCHMARK(SortUnorderedSheet)->Unit(benchmark::kMillisecond);

void SortSortedSheet(benchmark::State& state) {
  FlexGrid grid;
  FillSheet(grid);
  SortEntries(grid);
  for (auto _ : state) SortEntries(grid);
  state.SetItemsProcessed(state.iterations() * kSize.trades);
}
BENCHMARK(SortSortedSheet)->Unit(benchmark::kMillisecond);

// A window of forty rows, somewhere in the sheet.
void PaintOnePage(benchmark::State& state) {
  FlexGrid grid;
  FillSheet(grid);
  grid.SetPageRows(40);
  const GridSizes sizes = {.clientWidth = 1200, .clientHeight = 820};
  Random random(3);
  for (auto _ : state) {
    grid.SetTopRow(1 + static_cast<int>(random.Below(kSize.trades)));
    const GridGeometry geometry(grid, sizes);
    geometry.ForEachCell({0, 0, sizes.clientWidth, sizes.clientHeight},
                         [&](int row, int col, const GridRect& cell) {
                           benchmark::DoNotOptimize(cell);
                           benchmark::DoNotOptimize(grid.Text(row, col));
                         });
  }
}
BENCHMARK(PaintOnePage);

}  // namespace
}  // namespace tallyrun::bench

BENCHMARK_MAIN();
