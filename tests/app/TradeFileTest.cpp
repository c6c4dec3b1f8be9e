#include <map>
#include <random>

#include "app/TradeFile.h"
#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/GridRows.h"
#include "core/masterlists/Lookups.h"
#include "core/text/Split.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

TEST(TradeFileNameTest, BeginsWithTheModeAndHoldsTheDay) {
  const std::pair<const char*, const char*> cases[] = {
      {"C:\\in\\PayIn_05-01-2010.TXT", "S 05-Jan-2010"},
      {"payout_5 Feb 2010.txt", "B 05-Feb-2010"},
      {"payin_05-01-2010", "S 05-Jan-2010"}};
  for (const auto& [path, expected] : cases) {
    const auto name = ReadTradeFileName(path);
    ASSERT_TRUE(name) << path;
    EXPECT_EQ(name->mode.tradeSide + (" " + FormatDdMmmYyyy(name->day)), expected);
  }
  for (const char* path : {"payin.txt", "C:\\in\\payin", "PAYOUT", "holdings_05-01-2010.txt",
                           " payin_05-01-2010.txt"}) {
    EXPECT_FALSE(ReadTradeFileName(path)) << path;
  }
}

// What the import does, line by line and cell by cell.
void LoadPlainly(FlexGrid& grid, std::string_view text) {
  int row = 0;
  const auto put = [&](int col, std::string_view cell) {
    grid.SetText(row, col, cell);
    FitColumnWidth(grid, row, col);
  };
  for (const std::string_view line : Split(text, "\r\n")) {
    const auto fields = Split(line, "|");
    const auto field = [&](std::size_t number) {
      if (number >= fields.size()) throw RuntimeError(ErrorKind::SubscriptOutOfRange);
      return fields[number];
    };
    if (fields.size() < 2 || field(3) != "S") continue;
    grid.SetRows(++row + 1);
    put(EntryColumn::kSerial, std::to_string(row));
    put(EntryColumn::kScripId, field(1));
    put(EntryColumn::kQuantity, field(4));
    put(EntryColumn::kClientCode, field(6));
    const std::string boId = LookupBoIdByClientCode(field(6));
    put(EntryColumn::kBoId, boId);
    put(EntryColumn::kBoName, LookupBoName(boId));
    put(EntryColumn::kTradeDate, FormatDdMmmYyyy(ToDate(field(10))));
    const std::string isin = LookupIsinCodeByScrip(field(1));
    put(EntryColumn::kIsinCode, isin);
    put(EntryColumn::kIsinName, LookupIsinName(isin));
  }
  if (row == 0) ClearEntryGrid(grid);
}

using TradeFileTest = EntrySheetFixture;

TEST_F(TradeFileTest, TakesRandomFilesAsAPlainLoopDoes) {
  std::map<std::string, int> outcomes;
  for (unsigned seed = 1; seed <= 100; ++seed) {
    std::mt19937 random(seed);
    const auto pick = [&](std::initializer_list<const char*> texts) {
      return std::string(texts.begin()[random() % texts.size()]);
    };
    std::string text;
    const auto lines = random() % 60;
    for (auto left = lines; left > 0; --left) {
      if (random() % 8 == 0) text += pick({"", "no field", "\r", "x\ny", "\n"});
      if (random() % (4 * lines) == 0) {
        text += pick({"0|ALPHAM", "0|ALPHAM|2|S|1|5|C1", "0|A|2|S|3|5|C1|7|8|9|never"});
      } else if (random() % 8 != 0) {
        text += "0|" + pick({"ALPHAM", "bravo", "", "nothing"}) + "|2|" +
                pick({"S", "S", "B", "s"}) + "|" + pick({"5", "1,000", "", "999999999999"}) +
                "|5|" + pick({"C1", "C2", "C3", "", "NOBODY", "17"}) + "|7|8|9|" +
                pick({"03-01-2010", "4/1/10"}) + pick({"", "|11", "|11|12|13"});
      }
      text += "\r\n";
    }
    const std::string path = folder.Write("trad\xE9s.txt", text);
    FlexGrid expected, loaded;
    for (FlexGrid* each : {&expected, &loaded}) {
      each->SetCols(grid.Cols());
      each->SetMeasurer(grid.Measurer());
    }
    const std::string error = ErrorOf([&] { LoadPlainly(expected, text); });
    EXPECT_EQ(ErrorOf([&] { LoadTradeFile(loaded, path, "S"); }), error) << seed;
    EXPECT_EQ(RowsOf(loaded), RowsOf(expected)) << text;
    for (int col = 0; col < grid.Cols(); ++col) {
      EXPECT_EQ(loaded.ColWidth(col), expected.ColWidth(col));
    }
    ++outcomes[error];
  }
  EXPECT_GT(outcomes[""], 60);
  EXPECT_GT(outcomes["Type mismatch"], 0);
  EXPECT_GT(outcomes["Subscript out of range"], 0);
}

}  // namespace
}  // namespace tallyrun::testing
