#include <functional>
#include <gmock/gmock.h>
#include <random>

#include "app/TradeFile.h"
#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/GridRows.h"
#include "core/masterlists/Lookups.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;

TEST(TradeFileNameTest, BeginsWithTheModeAndHoldsTheDay) {
  const struct {
    const char* path;
    std::optional<EntryModeTexts> mode;
    Date day;
  } cases[] = {
      {"C:\\in\\PayIn_05-01-2010.TXT", kPayIn, {2010, 1, 5}},
      {"payout_5 Feb 2010.txt", kPayOut, {2010, 2, 5}},
      {"C:\\pay_in\\PAYIN_05-01-2010_second.txt", kPayIn, {2010, 1, 5}},
      {"payin_05-01-2010", kPayIn, {2010, 1, 5}},
      {"payin.txt", std::nullopt, {}},
      {"C:\\in\\payin", std::nullopt, {}},
      {"PAYOUT", std::nullopt, {}},
      {"holdings_05-01-2010.txt", std::nullopt, {}},
      {" payin_05-01-2010.txt", std::nullopt, {}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.path);
    const std::optional<TradeFileName> name = ReadTradeFileName(each.path);
    ASSERT_EQ(name.has_value(), each.mode.has_value());
    if (!name) continue;
    EXPECT_EQ(name->mode, *each.mode);
    EXPECT_EQ(name->day, each.day);
  }
  EXPECT_THROW(ReadTradeFileName("payin_today.txt"), RuntimeError);
}

struct TradeFileTest : EntrySheetFixture {
  std::string Write(std::string_view text) { return folder.Write("trad\xE9s.txt", text); }
};

constexpr char kTrades[] =
    "0|ALPHAM|2|S|100|5|C1|7|8|9|03-01-2010|11\r\n"
    "0|ALPHAM|2|B|200|5|C1|7|8|9|03-01-2010\r\n"
    "\r\n"
    "no field\r\n"
    "0|ALPHAM|2|s|300|5|C1|7|8|9|03-01-2010\r\n"
    "0|UNKNOWN|2|S|1,000|5|NOBODY|7|8|9|4/1/10\r\n"
    "0|BRAVOB|2|B|400|5|C3|7|8|9|2010-01-04";

TEST_F(TradeFileTest, TakesTheLinesOfOneSideAndLooksTheirNamesUp) {
  const std::string path = Write(kTrades);
  LoadTradeFile(grid, path, kPayIn.tradeSide);
  EXPECT_THAT(
      RowsOf(grid),
      ElementsAre(
          "1|||03-Jan-2010||C1|1201950000000001|ANN ALDER|ALPHAM|KX0001000011|"
          "ALPHA MILLS LTD|100|",
          "2|||04-Jan-2010||NOBODY||BO NAME NOT FOUND|UNKNOWN||ISIN NAME NOT FOUND|1,000|"));
  EXPECT_EQ(grid.ColWidth(EntryColumn::kBoName), 17 * 100 + 200);
  platform.answers = {MessageAnswer::Yes};
  LoadTradeFile(grid, path, kPayOut.tradeSide);
  EXPECT_THAT(ColumnOf(grid, EntryColumn::kQuantity), ElementsAre("200", "400"));
}

TEST_F(TradeFileTest, AsksBeforeRowsAreLostAndMayLeaveNone) {
  const std::vector<std::string> rows{"1|||||C2|||||||"};
  FillRows(grid, rows);
  EXPECT_FALSE(LoadTradeFile(grid, Write(kTrades), "S"));
  EXPECT_EQ(platform.TakeMessage().title, "Confirm Loading");
  EXPECT_EQ(RowsOf(grid), rows);
  ClearEntryGrid(grid);
  for (const char* const text : {"0|ALPHAM|2|B|200|5|C1|7|8|9|03-01-2010\r\n", ""}) {
    EXPECT_TRUE(LoadTradeFile(grid, Write(text), "S"));
    EXPECT_EQ(RowsOf(grid), std::vector<std::string>{"1||||||||||||"});
  }
}

TEST_F(TradeFileTest, ABadLineEndsTheImportAndTheRowsBeforeItStay) {
  const struct {
    const char* line;
    const char* error;
    std::vector<std::string> quantities;
  } cases[] = {
      {"0|BRAVOB|2|S|50|5|C2|7|8|9|never", "Type mismatch", {"100", "50"}},
      {"0|BRAVOB|2|S|50", "Subscript out of range", {"100", "50"}},
      {"0|BRAVOB", "Subscript out of range", {"100"}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.line);
    FillRows(grid, {"1"});
    const std::string good = "0|ALPHAM|2|S|100|5|C1|7|8|9|03-01-2010\r\n";
    const std::string path = Write(good + each.line + "\r\n" + good);
    EXPECT_EQ(ErrorOf([&] { LoadTradeFile(grid, path, "S"); }), each.error);
    EXPECT_EQ(ColumnOf(grid, EntryColumn::kQuantity), each.quantities);
  }
}

// What the import does, line by line and cell by cell.
void LoadPlainly(FlexGrid& grid, std::string_view text, std::string_view side) {
  const auto lines = Split(text, "\r\n");
  int row = 0;
  const auto put = [&](int col, std::string_view cell) {
    grid.SetText(row, col, cell);
    FitColumnWidth(grid, row, col);
  };
  for (const std::string_view line : lines) {
    const auto fields = Split(line, "|");
    if (fields.size() < 2 || fields.at(3) != side) continue;
    grid.SetRows(++row + 1);
    put(EntryColumn::kSerial, std::to_string(row));
    put(EntryColumn::kScripId, fields.at(1));
    put(EntryColumn::kQuantity, fields.at(4));
    put(EntryColumn::kClientCode, fields.at(6));
    const std::string boId = LookupBoIdByClientCode(fields.at(6));
    put(EntryColumn::kBoId, boId);
    put(EntryColumn::kBoName, LookupBoName(boId));
    put(EntryColumn::kTradeDate, FormatDdMmmYyyy(ToDate(fields.at(10))));
    const std::string isin = LookupIsinCodeByScrip(fields.at(1));
    put(EntryColumn::kIsinCode, isin);
    put(EntryColumn::kIsinName, LookupIsinName(isin));
  }
  if (row > 0) return;
  ClearEntryGrid(grid);
}

TEST_F(TradeFileTest, TakesRandomFilesAsAPlainLoopDoes) {
  int completed = 0;
  for (unsigned seed = 1; seed <= 100; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto pick = [&](std::initializer_list<const char*> texts) {
      return std::string(texts.begin()[random() % texts.size()]);
    };
    std::string text;
    const auto lines = random() % 60;
    for (auto left = lines; left > 0; --left) {
      if (random() % 8 == 0) text += pick({"", "no field", "\r", "x\ny", "\n"});
      if (random() % (4 * lines) == 0)
        text += pick({"0|ALPHAM", "0|ALPHAM|2|S|1|5|C1", "0|A|2|S|3"});
      if (random() % 8 != 0) {
        text += "0|" + pick({"ALPHAM", "bravo", "", "nothing"}) + "|2|" + pick({"S", "S", "B"}) +
                "|" + pick({"5", "1,000", "", "999999999999"}) + "|5|" +
                pick({"C1", "C2", "C3", "", "NOBODY", "17"}) + "|7|8|9|" +
                pick({"03-01-2010", "4/1/10"}) + pick({"", "|11", "|11|12|13"});
      }
      text += "\r\n";
    }
    FlexGrid expected;
    expected.SetCols(grid.Cols());
    expected.SetMeasurer(grid.Measurer());
    FlexGrid loaded;
    loaded.SetCols(grid.Cols());
    loaded.SetMeasurer(grid.Measurer());
    const auto fails = [](const std::function<void()>& load) {
      try {
        load();
        return false;
      } catch (const std::exception&) {
        return true;
      }
    };
    const std::string path = Write(text);
    const bool shouldFail = fails([&] { LoadPlainly(expected, text, "S"); });
    EXPECT_EQ(fails([&] { LoadTradeFile(loaded, path, "S"); }), shouldFail);
    EXPECT_EQ(RowsOf(loaded), RowsOf(expected)) << text;
    for (int col = 0; col < grid.Cols(); ++col) {
      EXPECT_EQ(loaded.ColWidth(col), expected.ColWidth(col));
    }
    completed += shouldFail ? 0 : 1;
  }
  EXPECT_GT(completed, 60);
}

}  // namespace
}  // namespace tallyrun::testing
