#include "app/EntrySearch.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

using EntrySearchTest = EntrySheetFixture;

TEST_F(EntrySearchTest, GoesDownFromTheCurrentRowAndWrapsOnce) {
  const struct {
    std::vector<std::string> names;
    int currentRow;
    const char* text;
    int found;
  } cases[] = {{{"x", "Abc Ltd", "y"}, 1, "  aBC ", 2},
               {{"abc", "x", "abc", "abc"}, 2, "abc", 3},
               {{"abc", "abc", "x", "x"}, 3, "abc", 1},
               {{"ab c", "abc", "x"}, 2, "abc", 0},  // the current row is never tested
               {{"77", "12345"}, 1, "234", 2},
               {{"x", "CL\xC9O"}, 1, "cl\xE9o", 2},
               {{"x", "y"}, 1, " ", 2}};  // an empty text is in every row
  for (const auto& each : cases) {
    std::vector<std::string> rows;
    for (const std::string& name : each.names) rows.push_back("|||||||" + name + "|||abc");
    FillRows(grid, rows);
    grid.SetRow(each.currentRow);
    EXPECT_EQ(FindEntry(grid, EntryColumn::kBoName, each.text).value_or(0), each.found)
        << &each - cases;
  }
}

}  // namespace
}  // namespace tallyrun::testing
