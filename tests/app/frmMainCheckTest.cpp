// The holding check as a clerk starts it: the dialog, every outcome, and what it leaves behind.
#include <gmock/gmock.h>

#include "holding/frmHoldingMessageIds.h"
#include "tests/support/GridText.h"
#include "tests/support/MainWindowFixture.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;
using ::testing::ElementsAre;
using ::testing::FieldsAre;

using frmMainCheckTest = MainWindowFixture;

TEST_F(frmMainCheckTest, EveryOutcomeIsToldOverTheWindowsOwnCaption) {
  const std::string header = "Report for BROKER :\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n";
  const struct {
    std::optional<std::string> file;  // none: the dialog is cancelled
    std::vector<Message> boxes;
    std::string problems;  // what the message window shows
  } cases[] = {
      {std::nullopt,
       {{"You must select a holding file(DPA6UX.TXT) before sending to KTX.",
         "Holding Not Checked.", MessageIcon::Critical}},
       ""},
      {"",
       {{"The selected file is empty.\r\n"
         "Please properly select the holding file (11DPA6UX.TXT).",
         "Empty File.", MessageIcon::Critical}},
       ""},
      {"Holdings :\r\nReport for A :",
       {{"Error checking BO account holding balance.", "Holding Check Error.",
         MessageIcon::Critical}},
       ""},
      {header + "A X 9",
       {},
       "A X holding insufficient. Pay In quantity : 10 Holding balance : 9\r\n"},
      {header + "A Y 10", {}, "A X holding balance missing.\r\n"},
      {header + "A X 10",
       {{"Holding balance checking completed.", "Checking Complete.", MessageIcon::Information}},
       ""},
  };
  FillRows(Sheet(), {EntryCells({{EntryColumn::kBoId, "A"},
                                 {EntryColumn::kIsinCode, "X"},
                                 {EntryColumn::kQuantity, "10"}})});
  platform.onMessage = [this](const Message&) {
    EXPECT_EQ(window.Caption(), "Tallyrun v1.0 : Pay In");
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.file.value_or("cancelled"));
    platform.messages.clear();
    platform.fileRequests.clear();
    platform.files = {each.file ? std::optional(folder.Write("11DPA6UX.TXT", *each.file))
                                : std::nullopt};
    std::string problems;
    const Meanwhile closeProblems([&] {
      const HWND shown = FindWindowA(frmHoldingMessageIds::kWindowClass,
                                     "Tallyrun v1.0 : Holding Balance Message.");
      if (shown == nullptr || !IsWindowVisible(shown)) return false;
      char text[200] = {};
      GetDlgItemTextA(shown, frmHoldingMessageIds::kTxtMessage, text, sizeof text);
      problems = text;
      SendMessageA(shown, WM_CLOSE, 0, 0);
      return true;
    });
    Click(kBtnCheck);
    EXPECT_EQ(platform.messages, each.boxes);
    EXPECT_EQ(problems, each.problems);
    EXPECT_EQ(window.Caption(), "Tallyrun v1.0 : Pay In");
    EXPECT_THAT(platform.fileRequests,
                ElementsAre(FieldsAre("Choose Holding FIle (11DPA6UX.TXT)",
                                      ElementsAre(FieldsAre("Text files (*.TXT)", "*.TXT"),
                                                  FieldsAre("All Files (*.*)", "*.*")))));
  }
}

}  // namespace
}  // namespace tallyrun::testing
