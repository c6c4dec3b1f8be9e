#include "tests/support/EntrySheetFixture.h"

namespace tallyrun::testing {
void SetBoList(const std::vector<std::string>& records) {
  std::string text = "S/N~BO ID~BO Name~Client Code";
  for (const std::string& record : records) text += "\r\n" + record;
  ReadBoList(text);
}

void SetIsinList(const std::vector<std::string>& records) {
  std::string text = "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code";
  for (const std::string& record : records) text += "\r\n" + record;
  ReadIsinList(text);
}

EntrySheetFixture::EntrySheetFixture() {
  EntryMode = kPayIn;
  SetBoList({
      "1~1201950000000001~ANN ALDER~C1",
      "2~1201950000000002~BEN BIRCH~C2",
      "3~1201950000000003~CL\xC9O CEDAR~C3\r",
  });
  SetIsinList({
      "1~KX0001000011~ALPHA MILLS LTD~ALPHAM~101",
      "2~KX0002000029~BRAVO BANK LTD~BRAVOB~102",
      "3~KX0003000037~CHARLIE CABLE LTD~CHARLC~103\r",
  });
  grid.SetCols(EntryColumn::kCount);
  grid.SetRows(2);
  grid.SetText(1, 0, "1");
  grid.SetMeasurer(TextMeasurer::FixedWidth(100));
}

}  // namespace tallyrun::testing
