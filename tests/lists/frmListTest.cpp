// The list window under real messages: its two lists, the editor in the grid, the keys of each
// control, the backup frame, and what may happen while a transfer runs.
#include <algorithm>
#include <gtest/gtest.h>

#include "core/Lists.h"
#include "core/Settings.h"
#include "lists/ListKind.h"
#include "lists/frmList.h"
#include "tests/support/FormDriver.h"
#include "tests/support/GridText.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {
namespace {

namespace ids = frmListIds;

constexpr char kBoFile[] =
    "S/N~BO ID~BO Name~Client Code\r\n"
    "1~1201950000000017~ANITA MEHROTRA~C001\r\n"
    "2~1201950000000025~BIJAY ABC~C002\r\n"
    "3~1201950000000033~CHANDRA RAI~C003\r";
constexpr char kIsinFile[] =
    "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n"
    "1~INE0AA101011~ALPHA CEMENTS~ALPHA~501\r";

class frmListTest : public ::testing::Test {
 protected:
  frmListTest() {
    Settings = {"123456", "1201950000000001", "1201950000000000", folder_.Path()};
    folder_.Write("BO.txt", kBoFile);
    folder_.Write("ISIN.txt", kIsinFile);
    Open(kBoKind);
  }
  ~frmListTest() override {
    form_.Unload();
    Pump();
    Settings = {};
    CurrentListKind.clear();
  }

  void Open(const std::string& kind) {
    form_.Unload();
    CurrentListKind = kind;
    form_.Show();
  }

  Control& On(int id) {
    const auto& all = form_.Controls();
    return **std::find_if(all.begin(), all.end(), [id](Control* each) { return each->Id() == id; });
  }
  FlexGridControl& List() { return static_cast<FlexGridControl&>(On(ids::kFlxList)); }
  FlexGrid& Grid() { return List().Grid(); }
  ListBox& Backups() { return static_cast<ListBox&>(On(ids::kLstBackups)); }
  Control& Editor() { return On(ids::kTxtEditor); }

  void Click(int id) { ClickOn(On(id)); }
  void Press(int id, int key) {
    On(id).SetFocus();
    PressKey(key);
  }
  void Choose(int index) { static_cast<ComboBox&>(On(ids::kCmbListOf)).SetListIndex(index); }

  void EditCell(int row, int col, const std::string& text) {
    List().SetFocus();
    Grid().SetRow(row);
    Grid().SetCol(col);
    Press(ids::kFlxList, VK_RETURN);
    ASSERT_TRUE(Editor().HasFocus());
    Editor().SetText(text);
  }

  RecordingPlatform platform_;
  TempFolder folder_;
  frmList form_;
};

TEST_F(frmListTest, OpensOnEitherListWithItsTexts) {
  EXPECT_EQ(form_.Caption(), "Tallyrun v1.0 : List of BOs");
  EXPECT_EQ(On(ids::kLblSelect).Text(), "Select BO :");
  EXPECT_EQ(On(ids::kBtnUpdateList).Text(), "Send");
  EXPECT_EQ(RowsOf(Grid())[2], "3|1201950000000033|CHANDRA RAI|C003\r");

  Open(kIsinKind);
  EXPECT_EQ(form_.Caption(), "Tallyrun v1.0 : List of ISINs");
  EXPECT_EQ(On(ids::kBtnUpdateList).ToolTip(), "Get the latest list of ISINs from KTX.");
  EXPECT_EQ(RowsOf(Grid()), std::vector<std::string>{"1|INE0AA101011|ALPHA CEMENTS|ALPHA|501\r"});
  Choose(0);
  EXPECT_EQ(CurrentListKind, kBoKind);
  EXPECT_EQ(Grid().Cols(), 4);
  EXPECT_TRUE(platform_.messages.empty());
}

TEST_F(frmListTest, ShownAgainItKeepsItsListAndItsEdits) {
  Choose(1);
  EditCell(1, 2, "renamed");
  Press(ids::kTxtEditor, VK_RETURN);
  CurrentListKind = kBoKind;
  form_.Show();
  EXPECT_EQ(CurrentListKind, kIsinKind);
  EXPECT_EQ(Grid().Text(1, 2), "renamed");
}

TEST_F(frmListTest, EnterCommitsWhatTheEditorHoldsAndCompletesBoIdsAlone) {
  const struct {
    int list;
    int col;
    const char* typed;
    const char* kept;
  } cases[] = {
      {0, 1, "  1234 ", "1201950000001234"},
      {0, 1, "", ""},
      {0, 2, " 1234 ", "1234"},
      {1, 1, "1234", "1234"},
      {1, 1, "a text longer than any BOID", "a text longer than any BOID"},
  };
  for (const auto& each : cases) {
    Choose(each.list);
    EditCell(1, each.col, each.typed);
    Press(ids::kTxtEditor, VK_RETURN);
    EXPECT_EQ(Grid().Text(1, each.col), each.kept) << each.typed;
    EXPECT_FALSE(Editor().Visible());
    EXPECT_TRUE(List().HasFocus());
    EXPECT_EQ(Grid().Row(), 1);
  }
  EXPECT_TRUE(platform_.messages.empty());
}

TEST_F(frmListTest, ATooLongBoIdKeepsTheEditorOpen) {
  EditCell(2, 1, " 12345678901234567 ");
  Press(ids::kTxtEditor, VK_RETURN);
  EXPECT_EQ(platform_.TakeMessage().text, "BOID length can not be greater than 16.");
  EXPECT_TRUE(Editor().HasFocus());
  EXPECT_EQ(Editor().Text(), "12345678901234567");
  EXPECT_EQ(Grid().Text(2, 1), "1201950000000025");
}

TEST_F(frmListTest, AnEditEndsWithoutATraceUnlessByEnter) {
  Grid().SetRows(500);
  const std::pair<const char*, std::function<void()>> endings[] = {
      {"Escape", [this] { Press(ids::kTxtEditor, VK_ESCAPE); }},
      {"another control", [this] { On(ids::kTxtItem).SetFocus(); }},
      {"scrolling", [this] { Grid().SetTopRow(100); }},
      {"resizing", [this] { SetWindowPos(form_.Handle(), nullptr, 0, 0, 1000, 700, SWP_NOMOVE); }},
  };
  for (const auto& [name, end] : endings) {
    Grid().SetTopRow(1);
    EditCell(1, 3, "typed");
    end();
    EXPECT_FALSE(Editor().Visible()) << name;
    EXPECT_EQ(Grid().Text(1, 3), "C001") << name;
  }
}

TEST_F(frmListTest, InsertAndDeleteActOnTheRowsFromEveryControlThatEditsNoText) {
  for (const int id : {ids::kFlxList, ids::kBtnAdd, ids::kBtnRemove, ids::kBtnReload, ids::kBtnSave,
                       ids::kBtnLoadBackup, ids::kBtnClose, ids::kTxtItem}) {
    On(id).SetFocus();
    const int rows = Grid().Rows();
    Press(id, VK_INSERT);
    EXPECT_EQ(Grid().Rows(), rows + 1) << id;
    EXPECT_EQ(Grid().Col(), 1) << id;
    EXPECT_TRUE(Editor().HasFocus()) << id;

    On(id).SetFocus();
    platform_.answers = {MessageAnswer::Yes};
    Press(id, VK_DELETE);
    EXPECT_EQ(Grid().Rows(), id == ids::kTxtItem ? rows + 1 : rows) << id;
  }
}

TEST_F(frmListTest, TheSearchSelectsTheRowAndThenItsOwnText) {
  On(ids::kTxtItem).SetFocus();
  On(ids::kTxtItem).SetText(" ABC ");
  Press(ids::kTxtItem, VK_RETURN);
  EXPECT_EQ(Grid().Row(), 2);
  EXPECT_EQ(Grid().ColSel(), 2);
  EXPECT_TRUE(On(ids::kTxtItem).HasFocus());
  DWORD first = 0;
  DWORD last = 0;
  SendMessageA(On(ids::kTxtItem).Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
               reinterpret_cast<LPARAM>(&last));
  EXPECT_EQ(first, 0u);
  EXPECT_EQ(last, 5u);

  On(ids::kTxtItem).SetText("  ");
  Press(ids::kTxtItem, VK_RETURN);
  EXPECT_TRUE(platform_.messages.empty());
  On(ids::kTxtItem).SetText("abc");
  Press(ids::kTxtItem, VK_RETURN);
  EXPECT_EQ(platform_.TakeMessage().title, "BO Not Found.");
}

TEST_F(frmListTest, SavingWritesTheListAndRefreshesItsLookupsAlone) {
  BoList = {};
  IsinList = {};
  EditCell(1, 3, "C777");
  Press(ids::kTxtEditor, VK_RETURN);
  Click(ids::kBtnReload);  // declined
  EXPECT_EQ(platform_.TakeMessage(),
            (Message{"Are you sure to reload the list?", "Reload Confirmation",
                     MessageIcon::Question, MessageButtons::YesNo}));
  Click(ids::kBtnSave);
  EXPECT_EQ(platform_.TakeMessage(),
            (Message{"Saved successfully.", "Saved.", MessageIcon::Information}));
  EXPECT_EQ(BoList.Field(2, BoField::kClientCode), "C777");
  EXPECT_EQ(IsinList.Count(), 0);

  Click(ids::kBtnAdd);
  Click(ids::kBtnSave);
  EXPECT_EQ(platform_.TakeMessage().text, "Blank row (row number 4) cannot be saved.");

  platform_.answers = {MessageAnswer::Yes};
  Click(ids::kBtnReload);
  EXPECT_EQ(Grid().Rows(), 4);
  platform_.messages.clear();

  // The folder is gone: told, and the edits stay.
  Settings.backupLocation += "gone\\";
  Click(ids::kBtnSave);
  EXPECT_EQ(platform_.TakeMessage().title, kApplicationTitle);
  EXPECT_EQ(Grid().Text(1, 3), "C777");
}

TEST_F(frmListTest, TheOpenBackupFrameLeavesNothingElseToDo) {
  folder_.Write("2010-05-06_14-30-05_BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~a~A~C9\r");
  Click(ids::kBtnLoadBackup);
  EXPECT_EQ(On(ids::kLblTitle_Backup).Text(), "List of BOs");
  EXPECT_EQ(Backups().ListCount(), 2);
  EXPECT_EQ(Backups().ItemText(Backups().ListIndex()), "BO.txt");
  EXPECT_TRUE(Backups().HasFocus());
  for (int id = ids::kCmbListOf; id <= ids::kBtnClose; ++id) {
    EXPECT_FALSE(On(id).Enabled()) << id;
  }
  for (const int key : {VK_INSERT, VK_DELETE}) Press(ids::kLstBackups, key);
  EXPECT_EQ(Grid().Rows(), 4);
  EXPECT_TRUE(platform_.messages.empty());

  Click(ids::kBtnCancel_Backup);
  EXPECT_FALSE(On(ids::kFrameBackup).Visible());
  for (int id = ids::kCmbListOf; id <= ids::kBtnClose; ++id) EXPECT_TRUE(On(id).Enabled()) << id;
  EXPECT_EQ(Grid().Rows(), 4);
}

TEST_F(frmListTest, ABackupIsTakenLoadedAndDeletedFromTheWindow) {
  platform_.now = {2010, 5, 6, 14, 30, 5, 0};
  Click(ids::kBtnSaveAsBackup);
  EXPECT_EQ(platform_.TakeMessage().title, "Backup succeeded.");
  EditCell(1, 3, "C777");
  Press(ids::kTxtEditor, VK_RETURN);

  Click(ids::kBtnLoadBackup);
  Backups().SetListIndex(0);
  SendMessageA(GetParent(Backups().Handle()), WM_COMMAND, MAKEWPARAM(ids::kLstBackups, LBN_DBLCLK),
               reinterpret_cast<LPARAM>(Backups().Handle()));
  EXPECT_EQ(Grid().Text(1, 3), "C001");
  EXPECT_FALSE(On(ids::kFrameBackup).Visible());

  Click(ids::kBtnLoadBackup);
  Backups().SetListIndex(0);
  platform_.answers = {MessageAnswer::Yes};
  Click(ids::kBtnDelete_Backup);
  EXPECT_FALSE(folder_.Has("2010-05-06_14-30-05_BO.txt"));
  EXPECT_EQ(Backups().ItemText(Backups().ListIndex()), "BO.txt");
  EXPECT_TRUE(On(ids::kFrameBackup).Visible());
  platform_.messages.clear();

  // One that another program deletes keeps its entry.
  folder_.Write("2010-05-06_14-30-05_BO.txt", "old");
  Click(ids::kBtnCancel_Backup);
  Click(ids::kBtnLoadBackup);
  Backups().SetListIndex(0);
  DeleteFileA((folder_ / "2010-05-06_14-30-05_BO.txt").c_str());
  platform_.answers = {MessageAnswer::Yes};
  Click(ids::kBtnDelete_Backup);
  EXPECT_EQ(platform_.messages.back(), Message{"File not found"});
  EXPECT_EQ(Backups().ListCount(), 2);
}

TEST_F(frmListTest, ClosedDuringATransferItTellsTheOutcomeAndGoesUnlessWantedAgain) {
  for (const bool wantedAgain : {true, false}) {
    platform_.onPendingEvents = [&] {
      folder_.Write("out.txt", "226 Transfer complete.");
      SendMessageA(form_.Handle(), WM_CLOSE, 0, 0);
      EXPECT_FALSE(IsWindowVisible(form_.Handle()));
      if (wantedAgain) form_.Show();
    };
    Click(ids::kBtnUpdateList);
    EXPECT_EQ(platform_.TakeMessage().title, "Send succeeded");
    EXPECT_FALSE(folder_.Has("BO_123456.txt"));
    Pump();
    EXPECT_EQ(form_.IsLoaded(), wantedAgain);
  }
}

TEST_F(frmListTest, EveryControlStandsInTheWindowApartFromTheOthers) {
  for (const int dpi : {96, 144}) {
    RECT window = {0, 0, 1200, 800};
    SendMessageA(form_.Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                 reinterpret_cast<LPARAM>(&window));
    const SIZE least = form_.MinimumClientSize();
    for (int id = ids::kCmbListOf; id <= ids::kBtnClose; ++id) {
      if (id == ids::kTxtEditor) continue;
      const PixelRect a = On(id).Bounds();
      EXPECT_GE(a.x, 0) << id;
      EXPECT_GT(a.width, 0) << id;
      EXPECT_LE(a.x + a.width, std::max<int>(1200, least.cx)) << id;
      for (int other = id + 1; other <= ids::kBtnClose; ++other) {
        if (other == ids::kTxtEditor) continue;
        const PixelRect b = On(other).Bounds();
        const bool apart = a.x + a.width <= b.x || b.x + b.width <= a.x || a.y + a.height <= b.y ||
                           b.y + b.height <= a.y;
        EXPECT_TRUE(apart) << id << " and " << other << " at " << dpi;
      }
    }
  }
}

}  // namespace
}  // namespace tallyrun::testing
