// The list window under real messages: the editor in the grid, the keys of each control, the
// search, and what may happen while a transfer runs.
#include <gmock/gmock.h>

#include "tests/support/ListWindowFixture.h"

namespace tallyrun::testing {
namespace {

using namespace frmListIds;
using ::testing::ElementsAre;

using frmListTest = ListWindowFixture;

TEST_F(frmListTest, EnterKeepsWhatTheEditorHoldsAndCompletesBoIdsAlone) {
  const struct {
    const char* kind;
    int col;
    const char *typed, *kept;
  } cases[] = {{kBoKind, 1, "  1234 ", "1201950000001234"},
               {kBoKind, 1, "", ""},
               {kBoKind, 2, " 1234 ", "1234"},
               {kIsinKind, 1, "a text longer than any BOID", "a text longer than any BOID"}};
  Enter(2, 1, " 12345678901234567 ");
  EXPECT_EQ(platform.TakeMessage(), (Message{"BOID length can not be greater than 16.", "Tallyrun",
                                             MessageIcon::Critical}));
  EXPECT_TRUE(Editor().HasFocus());
  EXPECT_EQ(Editor().Text(), "12345678901234567");
  SetWindowPos(form.Handle(), nullptr, 0, 0, 1000, 700, SWP_NOMOVE);
  EXPECT_FALSE(Editor().Visible());
  EXPECT_EQ(Grid().Text(2, 1), "1201950000000025");
  for (const auto& each : cases) {
    Choose(each.kind);
    Enter(1, each.col, each.typed);
    EXPECT_EQ(Grid().Text(1, each.col), each.kept) << each.typed;
    EXPECT_TRUE(On(kFlxList).HasFocus());
  }
  form.Show();
  EXPECT_EQ(CurrentListKind, kIsinKind);  // shown again, it keeps its list with its edits
  EXPECT_EQ(Grid().Text(1, 1), "a text longer than any BOID");
}

TEST_F(frmListTest, InsertAndDeleteActOnTheRowsFromEveryControlThatEditsNoText) {
  for (const int id : {kFlxList, kBtnSave, kTxtItem}) {
    const int rows = Grid().Rows();
    Press(id, VK_INSERT);
    EXPECT_EQ(Grid().Rows(), rows + 1) << id;
    EXPECT_TRUE(Editor().HasFocus()) << id;
    platform.answers = {MessageAnswer::Yes};
    Press(id, VK_DELETE);
    EXPECT_EQ(Grid().Rows(), id == kTxtItem ? rows + 1 : rows) << id;
  }
}

TEST_F(frmListTest, EveryControlHasItsPlaceAtEveryDpi) { ExpectControlsApart(form); }

TEST_F(frmListTest, AFoundRowIsSelectedUpToItsNameAndTheTextWaitsToBeTypedOver) {
  Grid().SetRows(201);
  for (int row = 1; row <= 200; ++row) Grid().SetText(row, 2, "name " + std::to_string(row));
  Grid().SetText(1, 0, "name 150");    // serial numbers are passed over
  Grid().SetText(151, 3, "name 152");  // rows go before columns
  const struct {
    const char* text;
    int row, topRow;
    unsigned boxes;
  } cases[] = {{" name 2 ", 2, 1, 0},  // a row in sight stays where it is
               {"name 150", 150, 150, 0},
               {"name 152", 151, 150, 0},
               {"NAME 152", 151, 150, 1}};
  for (const auto& each : cases) {
    On(kTxtItem).SetText(each.text);
    Press(kTxtItem, VK_RETURN);
    EXPECT_TRUE(On(kTxtItem).HasFocus());
    EXPECT_EQ(SendMessageA(On(kTxtItem).Handle(), EM_GETSEL, 0, 0), MAKELONG(0, 8));
    EXPECT_THAT(std::vector({Grid().Row(), Grid().RowSel(), Grid().Col(), Grid().ColSel()}),
                ElementsAre(each.row, each.row, 0, 2));
    EXPECT_EQ(Grid().TopRow(), each.topRow);
    EXPECT_EQ(platform.messages.size(), each.boxes);
  }
  On(kTxtItem).SetText("  ");
  Press(kTxtItem, VK_RETURN);
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"There is no such BO in the list.", "BO Not Found.", MessageIcon::Critical}));
}

TEST_F(frmListTest, AHeldEnterActsOnce) {
  Choose(kIsinKind);
  const auto hold = [this](int id, UINT message) {
    On(id).SetFocus();
    for (const LPARAM key : {0, 1 << 30}) SendMessageA(GetFocus(), message, VK_RETURN, key);
  };
  hold(kFlxList, WM_CHAR);
  EXPECT_TRUE(Editor().HasFocus()) << "opened, and not kept at once";
  On(kTxtItem).SetText("BIJAY");
  hold(kTxtItem, WM_KEYDOWN);
  EXPECT_EQ(platform.TakeMessage(), (Message{"There is no such ISIN in the list.", "BO Not Found.",
                                             MessageIcon::Critical}));
}

TEST_F(frmListTest, TheClerkGoesOnWhileATransferRunsAndFindsTheWindowAsItWasLeft) {
  const std::string sending = "Sending list of BOs to KTX...Please wait...";
  const std::string receiving = "Receiving list of ISINs from KTX...Please wait...";
  const struct {
    const char* kind;
    std::function<void()> meanwhile;
    const char* kindThen;
    bool editing = false;
  } cases[] = {{kBoKind, [this] { EditCell(2, 3, "typed"); }, kBoKind, true},
               {kIsinKind, [this] { EditCell(1, 3, "typed"); }, kIsinKind},  // loaded anew
               {kBoKind, [this] { Choose(kIsinKind); }, kIsinKind},
               {kIsinKind,
                [this] {
                  ++platform.now.second;
                  const int files = folder.EntryCount();
                  EXPECT_THAT(BoxesOf(kBtnUpdateList), ElementsAre(Message{"Permission denied"}));
                  EXPECT_EQ(folder.EntryCount(), files);
                },
                kIsinKind}};
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    Choose(each.kind);
    bool first = true;
    platform.onPendingEvents = [&] {
      if (!std::exchange(first, false)) return;
      each.meanwhile();
      EXPECT_EQ(form.Caption(), each.kind == kBoKind ? sending : receiving);
      folder.Write("out.txt", "226 Transfer complete.");
    };
    std::string captionOfBox;
    platform.onMessage = [&](const Message&) { captionOfBox = form.Caption(); };
    Click(kBtnUpdateList);
    const std::string idle = std::string("Tallyrun v1.0 : List of ") + each.kindThen + "s";
    EXPECT_EQ(captionOfBox, idle + "..." + platform.messages.back().text);
    EXPECT_EQ(form.Caption(), idle);
    EXPECT_EQ(Editor().Visible(), each.editing);
  }
}

TEST_F(frmListTest, ClosedDuringATransferItTellsTheOutcomeAndGoesUnlessWantedAgain) {
  for (const bool wantedAgain : {true, false}) {
    platform.onPendingEvents = [&] {
      folder.Write("out.txt", "226 Transfer complete.");
      SendMessageA(form.Handle(), WM_CLOSE, 0, 0);
      EXPECT_FALSE(IsWindowVisible(form.Handle()));
      if (wantedAgain) form.Show();
    };
    Click(kBtnUpdateList);
    EXPECT_EQ(platform.TakeMessage().title, "Send succeeded");
    EXPECT_FALSE(folder.Has("BO_123456.txt"));
    Pump();
    EXPECT_EQ(form.IsLoaded(), wantedAgain);
  }
}

}  // namespace
}  // namespace tallyrun::testing
