// The list window under real messages: its two lists, the editor in the grid, the keys of each
// control, the backup frame, and what may happen while a transfer runs.
#include "tests/support/ListWindowFixture.h"

namespace tallyrun::testing {
namespace {

namespace ids = frmListIds;

using frmListTest = ListWindowFixture;

TEST_F(frmListTest, EnterKeepsWhatTheEditorHoldsAndCompletesBoIdsAlone) {
  const struct {
    int list, col;
    const char *typed, *kept;
  } cases[] = {
      {0, 1, "  1234 ", "1201950000001234"},
      {0, 1, "", ""},
      {0, 2, " 1234 ", "1234"},
      {1, 1, "a text longer than any BOID", "a text longer than any BOID"},
  };
  for (const auto& each : cases) {
    On<ComboBox>(ids::kCmbListOf).SetListIndex(each.list);
    Enter(1, each.col, each.typed);
    EXPECT_EQ(Grid().Text(1, each.col), each.kept) << each.typed;
    EXPECT_TRUE(On(ids::kFlxList).HasFocus());
  }
  form.Show();
  EXPECT_EQ(CurrentListKind, kIsinKind);  // shown again, it keeps its list with its edits
  EXPECT_EQ(Grid().Text(1, 1), "a text longer than any BOID");
}

TEST_F(frmListTest, ATooLongBoIdKeepsTheEditorOpen) {
  Enter(2, 1, " 12345678901234567 ");
  EXPECT_EQ(platform.TakeMessage().text, "BOID length can not be greater than 16.");
  EXPECT_TRUE(Editor().HasFocus());
  EXPECT_EQ(Editor().Text(), "12345678901234567");
  EXPECT_EQ(Grid().Text(2, 1), "1201950000000025");
}

TEST_F(frmListTest, AnEditEndsWithoutATraceUnlessByEnter) {
  Grid().SetRows(500);
  const std::function<void()> endings[] = {
      [] { PressKey(VK_ESCAPE); },
      [this] { On(ids::kTxtItem).SetFocus(); },
      [this] { Grid().SetTopRow(100); },
      [this] { SetWindowPos(form.Handle(), nullptr, 0, 0, 1000, 700, SWP_NOMOVE); },
  };
  for (const auto& end : endings) {
    SCOPED_TRACE(&end - endings);
    Grid().SetTopRow(1);
    EditCell(1, 3, "typed");
    end();
    EXPECT_FALSE(Editor().Visible());
    EXPECT_EQ(Grid().Text(1, 3), "C001");
  }
}

TEST_F(frmListTest, InsertAndDeleteActOnTheRowsFromEveryControlThatEditsNoText) {
  for (const int id : {ids::kFlxList, ids::kBtnSave, ids::kTxtItem}) {
    const int rows = Grid().Rows();
    Press(id, VK_INSERT);
    EXPECT_EQ(Grid().Rows(), rows + 1) << id;
    EXPECT_EQ(Grid().Col(), 1) << id;
    EXPECT_TRUE(Editor().HasFocus()) << id;
    platform.answers = {MessageAnswer::Yes};
    Press(id, VK_DELETE);
    EXPECT_EQ(Grid().Rows(), id == ids::kTxtItem ? rows + 1 : rows) << id;
  }
}

TEST_F(frmListTest, EveryControlHasItsPlaceAtEveryDpi) { ExpectControlsApart(form); }

TEST_F(frmListTest, TheFirstDataColumnIsCurrentAfterEveryLoadThatLaysOutTheList) {
  EXPECT_EQ(Grid().Col(), 1);
  for (const int list : {1, 0}) {
    Grid().SelectRow(Grid().Rows() - 1);
    On<ComboBox>(ids::kCmbListOf).SetListIndex(list);
    EXPECT_EQ(Grid().Row(), 1);
    EXPECT_EQ(Grid().Col(), 1);
    EXPECT_EQ(Grid().ColSel(), 1);
  }
}

TEST_F(frmListTest, AHeldEnterActsOnce) {
  On<ComboBox>(ids::kCmbListOf).SetListIndex(1);
  const auto hold = [this](int id, UINT message) {
    On(id).SetFocus();
    for (const LPARAM key : {0, 1 << 30, 1 << 30}) {
      SendMessageA(GetFocus(), message, VK_RETURN, key);
    }
  };
  hold(ids::kFlxList, WM_CHAR);
  EXPECT_TRUE(Editor().HasFocus()) << "opened, and not kept at once";
  On(ids::kTxtItem).SetText("nobody");
  hold(ids::kTxtItem, WM_KEYDOWN);
  EXPECT_EQ(platform.TakeMessage(), (Message{"There is no such ISIN in the list.", "BO Not Found.",
                                             MessageIcon::Critical}));
}

TEST_F(frmListTest, SavingWritesTheListAndRefreshesItsLookupsAlone) {
  Enter(1, 3, "C777");
  Click(ids::kBtnSave);
  platform.messages.clear();
  EXPECT_EQ(BoList.Field(2, BoField::kClientCode), "C777");
  EXPECT_EQ(IsinList.Count(), 0);
  Enter(1, 3, "C778");
  // The folder is gone: told, and the edits stay.
  Settings.backupLocation += "gone\\";
  Click(ids::kBtnSave);
  EXPECT_EQ(platform.TakeMessage(), Message{"Path not found"});
  Click(ids::kBtnSaveAsBackup);
  EXPECT_EQ(platform.TakeMessage(), Message{"Path not found"});
  EXPECT_EQ(Grid().Text(1, 3), "C778");
}

TEST_F(frmListTest, TheOpenBackupFrameLeavesNothingElseToDo) {
  platform.now = {2010, 5, 6, 14, 30, 5, 0};
  Click(ids::kBtnSaveAsBackup);
  Enter(1, 3, "C777");
  Click(ids::kBtnLoadBackup);
  EXPECT_EQ(Backups().ItemText(Backups().ListIndex()), "BO.txt");
  for (int id = ids::kCmbListOf; id <= ids::kBtnClose; ++id) EXPECT_FALSE(On(id).Enabled()) << id;
  PressKey(VK_INSERT);
  EXPECT_EQ(Grid().Rows(), 4);
  Backups().SetListIndex(0);
  SendMessageA(GetParent(Backups().Handle()), WM_COMMAND, MAKEWPARAM(ids::kLstBackups, LBN_DBLCLK),
               reinterpret_cast<LPARAM>(Backups().Handle()));
  EXPECT_EQ(Grid().Text(1, 3), "C001");
  for (int id = ids::kCmbListOf; id <= ids::kBtnClose; ++id) EXPECT_TRUE(On(id).Enabled()) << id;
  // A backup that another program deletes keeps its entry.
  Click(ids::kBtnLoadBackup);
  Backups().SetListIndex(0);
  folder.Remove("2010-05-06_14-30-05_BO.txt");
  platform.answers = {MessageAnswer::Yes};
  Click(ids::kBtnDelete_Backup);
  EXPECT_EQ(platform.messages.back(), Message{"File not found"});
  EXPECT_EQ(Backups().ItemText(0), "2010-05-06_14-30-05");
}

TEST_F(frmListTest, TheClerkGoesOnWhileATransferRunsAndFindsTheWindowAsItWasLeft) {
  const struct {
    int list;
    std::function<void()> meanwhile;
    const char *progress, *idle;
    bool editing;
  } cases[] = {
      {0, [this] { EditCell(2, 3, "typed"); }, "Sending list of BOs to KTX...Please wait...",
       "Tallyrun v1.0 : List of BOs", true},
      {1, [this] { EditCell(1, 3, "typed"); }, "Receiving list of ISINs from KTX...Please wait...",
       "Tallyrun v1.0 : List of ISINs", false},  // the rows are loaded anew
      {0, [this] { On<ComboBox>(ids::kCmbListOf).SetListIndex(1); },
       "Sending list of BOs to KTX...Please wait...", "Tallyrun v1.0 : List of ISINs", false},
      {1,
       [this] {
         Click(ids::kBtnUpdateList);
         EXPECT_EQ(platform.TakeMessage(), Message{"Permission denied"});
       },
       "Receiving list of ISINs from KTX...Please wait...", "Tallyrun v1.0 : List of ISINs", false},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    On<ComboBox>(ids::kCmbListOf).SetListIndex(each.list);
    bool first = true;
    platform.onPendingEvents = [&] {
      if (!std::exchange(first, false)) return;
      each.meanwhile();
      EXPECT_EQ(form.Caption(), each.progress);
      folder.Write("out.txt", "226 Transfer complete.");
    };
    std::string captionOfBox;
    platform.onMessage = [&](const Message&) { captionOfBox = form.Caption(); };
    Click(ids::kBtnUpdateList);
    EXPECT_EQ(captionOfBox, each.idle + ("..." + platform.TakeMessage().text));
    EXPECT_EQ(form.Caption(), each.idle);
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
    Click(ids::kBtnUpdateList);
    EXPECT_EQ(platform.TakeMessage().title, "Send succeeded");
    EXPECT_FALSE(folder.Has("BO_123456.txt"));
    Pump();
    EXPECT_EQ(form.IsLoaded(), wantedAgain);
  }
}

}  // namespace
}  // namespace tallyrun::testing
