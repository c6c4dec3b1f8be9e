#include "app/EntrySearch.h"
#include "tests/support/EntrySheetFixture.h"
#include "tests/support/GridText.h"

namespace tallyrun::testing {
namespace {

class EntrySearchTest : public EntrySheetFixture {};

struct SearchCase {
  const char* name;
  std::vector<std::string> names;  // the BO Name column
  int currentRow;
  const char* text;
  int found;
};

TEST_F(EntrySearchTest, GoesDownFromTheCurrentRowAndWrapsOnce) {
  const SearchCase cases[] = {
      {"any case, blanks around", {"x", "Abc Ltd", "y"}, 1, "  aBC ", 2},
      {"the next match below comes first", {"abc", "x", "abc", "abc"}, 2, "abc", 3},
      {"past the end it starts again at the top", {"abc", "abc", "x", "x"}, 3, "abc", 1},
      {"the current row is never tested", {"x", "abc", "x"}, 2, "abc", 0},
      {"a single row is never tested", {"abc"}, 1, "abc", 0},
      {"numbers too", {"77", "12345"}, 1, "234", 2},
      {"an accent in the other case", {"x", "CL\xC9O"}, 1, "cl\xE9o", 2},
      {"blanks inside count", {"x", "AB C"}, 1, "abc", 0},
      {"an empty text is in the next row", {"x", "y"}, 1, " ", 2},
  };
  for (const SearchCase& each : cases) {
    SCOPED_TRACE(each.name);
    std::vector<std::string> rows;
    for (const std::string& name : each.names) {
      rows.push_back(EntryCells({{EntryColumn::kBoName, name}, {EntryColumn::kIsinName, "abc"}}));
    }
    FillRows(grid, rows);
    grid.SetRow(each.currentRow);
    EXPECT_EQ(FindEntry(grid, EntryColumn::kBoName, each.text).value_or(0), each.found);
  }
}

}  // namespace
}  // namespace tallyrun::testing
