// What the list window's buttons ask, tell and do to the files of a list, and the texts of both.
#include <gmock/gmock.h>

#include "tests/support/ListWindowFixture.h"

namespace tallyrun::testing {
namespace {

using namespace frmListIds;
using ::testing::ElementsAre;

constexpr char kBackup[] = "2010-05-06_14-30-05_BO.txt";

using frmListFilesTest = ListWindowFixture;

TEST_F(frmListFilesTest, SaveReloadAndBackupAskAndTell) {
  const std::string saved = folder.Read("BO.txt");
  const Message reload = {"Are you sure to reload the list?", "Reload Confirmation",
                          MessageIcon::Question, MessageButtons::YesNo};
  Enter(1, 3, "C777");
  EXPECT_THAT(BoxesOf(kBtnSaveAsBackup),
              ElementsAre(Message{"Backup taken successfully.", "Backup succeeded.",
                                  MessageIcon::Information}));
  EXPECT_EQ(folder.Read(kBackup), saved);  // the file, not what the window shows
  EXPECT_THAT(BoxesOf(kBtnReload, MessageAnswer::No), ElementsAre(reload));
  EXPECT_EQ(ClientCode(), "C777");
  EXPECT_THAT(BoxesOf(kBtnReload), ElementsAre(reload));
  EXPECT_EQ(ClientCode(), "C001");
  Enter(1, 3, "C778");
  EXPECT_THAT(BoxesOf(kBtnSave),
              ElementsAre(Message{"Saved successfully.", "Saved.", MessageIcon::Information}));
  EXPECT_NE(folder.Read("BO.txt").find("C778"), std::string::npos);
  EXPECT_EQ(BoList.Field(2, BoField::kClientCode), "C778");
  EXPECT_EQ(IsinList.Count(), 0);  // its lookups alone are refreshed
  Settings.backupLocation += "gone\\";
  for (const int button : {kBtnSave, kBtnSaveAsBackup}) {
    EXPECT_THAT(BoxesOf(button), ElementsAre(Message{"Path not found"}));
  }
}

TEST_F(frmListFilesTest, ABlankRowStopsEveryUseOfTheList) {
  Click(kBtnAdd);
  for (const int button : {kBtnSave, kBtnSaveAsBackup, kBtnUpdateList}) {
    Grid().SetRow(1);
    EXPECT_THAT(BoxesOf(button), ElementsAre(Message{"Blank row (row number 4) cannot be saved.",
                                                     "Blank Row Found.", MessageIcon::Critical}));
    EXPECT_THAT(std::vector({Grid().Row(), Grid().Col(), Grid().ColSel()}), ElementsAre(4, 0, 3));
  }
  EXPECT_EQ(folder.EntryCount(), 2);
  EXPECT_TRUE(platform.started.empty());
  for (const int col : {1, 2, 3}) {
    Grid().SetText(4, col, "\r");  // what ends a file is text
    EXPECT_EQ(BoxesOf(kBtnSave).back().title, "Saved.") << col;
    Grid().SetText(4, col, " ");
    EXPECT_EQ(BoxesOf(kBtnSave).back().title, "Blank Row Found.");
  }
  EXPECT_EQ(BoxesOf(kBtnRemove).size(), 1u);
  EXPECT_EQ(Grid().Rows(), 4);
  MouseOnCell(On<FlexGridControl>(kFlxList), WM_LBUTTONDBLCLK, 2, 2);
  EXPECT_TRUE(Editor().HasFocus());
  EXPECT_EQ(Editor().Text(), "BIJAY ABC");
  Click(kBtnClose);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(frmListFilesTest, TheBackupFrameLoadsAndDeletesAndLeavesNothingElseToDo) {
  const Message question = {"Are you sure to delete the selected backup?", "Delete Confirmation",
                            MessageIcon::Critical, MessageButtons::YesNo};
  const auto expectOthersEnabled = [this](bool enabled) {
    for (int id = kCmbListOf; id <= kBtnClose; ++id) EXPECT_EQ(On(id).Enabled(), enabled) << id;
    EXPECT_EQ(On(kFrameBackup).Visible(), !enabled);
  };
  for (const char* name : {kBackup, "a_bo.TXT", "a_ISIN.txt", "a_PI.txt", "BO.txt.old"}) {
    folder.Write(name, folder.Read("BO.txt"));
  }
  Enter(1, 3, "C777");
  Click(kBtnLoadBackup);
  expectOthersEnabled(false);
  EXPECT_EQ(On(kLblTitle_Backup).Text(), "List of BOs");
  PressKey(VK_INSERT);
  EXPECT_EQ(Grid().Rows(), 4);
  EXPECT_THAT(BoxesOf(kBtnDelete_Backup),
              ElementsAre(Message{"This is currently the main file. You cannot delete this.",
                                  "Deletion Failed", MessageIcon::Critical}));
  Backups().SetListIndex(1);
  EXPECT_THAT(BoxesOf(kBtnDelete_Backup, MessageAnswer::No), ElementsAre(question));
  EXPECT_TRUE(folder.Has("a_bo.TXT"));
  EXPECT_THAT(BoxesOf(kBtnDelete_Backup),
              ElementsAre(question, Message{"Backup deleted successfully.", "Delete Succeeded",
                                            MessageIcon::Information}));
  EXPECT_FALSE(folder.Has("a_bo.TXT"));
  EXPECT_EQ(Backups().ItemText(2), "") << "two are left";
  EXPECT_EQ(Backups().ListIndex(), 0);
  SendMessageA(GetParent(Backups().Handle()), WM_COMMAND, MAKEWPARAM(kLstBackups, LBN_DBLCLK),
               reinterpret_cast<LPARAM>(Backups().Handle()));
  EXPECT_EQ(ClientCode(), "C001");
  expectOthersEnabled(true);
  // A backup that another program deletes keeps its entry.
  Click(kBtnLoadBackup);
  Backups().SetListIndex(0);
  folder.Remove(kBackup);
  EXPECT_THAT(BoxesOf(kBtnDelete_Backup), ElementsAre(question, Message{"File not found"}));
  EXPECT_EQ(Backups().ItemText(0), "2010-05-06_14-30-05");
  Click(kBtnCancel_Backup);
  expectOthersEnabled(true);
}

TEST_F(frmListFilesTest, EveryReceiveKeepsTheListBeforeIt) {
  Choose(kIsinKind);
  std::vector<std::string> lists = {folder.Read("ISIN.txt")};
  platform.onPendingEvents = [&] {
    folder.Write("ISIN.txt", lists.back());
    folder.Write("out.txt", "226 Transfer complete.");
  };
  for (const char* name : {"second", "third"}) {
    ++platform.now.second;
    lists.push_back(lists.front() + name);
    EXPECT_THAT(BoxesOf(kBtnUpdateList),
                ElementsAre(Message{"List of ISINs received from KTX successfully.",
                                    "Recieve succeeded", MessageIcon::Information}));
    EXPECT_EQ(Grid().Text(1, 4), std::string("501\r") + name);
  }
  EXPECT_EQ(folder.Read("2010-05-06_14-30-06_ISIN.txt"), lists[0]);
  EXPECT_EQ(folder.Read("2010-05-06_14-30-07_ISIN.txt"), lists[1]);
  EXPECT_EQ(folder.EntryCount(), 4);
}

TEST_F(frmListFilesTest, EachListHasItsTextsAndWidthsAndBeginsInItsFirstDataColumn) {
  EXPECT_EQ(Grid().Col(), 1);
  const struct {
    const char *kind, *captions, *updateCaption, *updateTip;
    std::vector<int> margins;  // beside the captions, twips
  } cases[] = {
      {kIsinKind,
       "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code",
       "Receive",
       "Get the latest list of ISINs from KTX.",
       {200, 200, 200, 200, 200}},
      {kBoKind,
       "S/N~BO ID~BO Name~Client Code",
       "Send",
       "Send the list of BOs to KTX. These BOs will be included in the holding reports you receive "
       "from KTX.",
       {200, 200, 2000, 200}}};
  for (const auto& each : cases) {
    const std::string title = std::string("List of ") + each.kind + "s";
    folder.Write(std::string(each.kind) + ".txt", each.captions);
    Grid().SelectRow(Grid().Rows() - 1);
    Choose(each.kind);
    EXPECT_THAT(std::vector({Grid().Row(), Grid().Col(), Grid().ColSel()}), ElementsAre(1, 1, 1));
    EXPECT_EQ(Grid().Text(1, 1), "") << "nothing of the other list";
    EXPECT_EQ(On(kLblSelect).Text(), std::string("Select ") + each.kind + " :");
    EXPECT_EQ(
        On(kFlxList).ToolTip(),
        title + ". Press INSERT key to add a new row or DELETE key to remove the selected row(s).");
    EXPECT_EQ(On(kBtnUpdateList).Text(), each.updateCaption);
    EXPECT_EQ(On(kBtnUpdateList).ToolTip(), each.updateTip);
    std::vector<int> margins;
    for (int col = 0; col < Grid().Cols(); ++col) {
      margins.push_back(Grid().ColWidth(col) - Grid().Measurer().WidthOf(Grid().Text(0, col)));
    }
    EXPECT_EQ(margins, each.margins);
  }
  const std::pair<int, const char*> tips[] = {
      {kTxtItem, "Type the significant letters and Press <ENTER>."},
      {kBtnAdd, "Add a new row in the list."},
      {kBtnRemove, "Remove the selected row from the list."},
      {kBtnReload, "Reload the list."},
      {kBtnSave, "Save the list."},
      {kBtnSaveAsBackup, "Save the list."},
      {kBtnLoadBackup, "Load the list from backup."},
      {kBtnClose, "Close the list and get back to data entry."},
      {kFrameBackup, "Select a backup to load it."},
      {kLblTitle_Backup, "Select a backup to load it."},
      {kLstBackups, "List of backups"},
      {kBtnLoad_Backup, "Load the selected backup in the list."},
      {kBtnCancel_Backup, "Cancel loading any backup."},
      {kBtnDelete_Backup, "Load the selected backup in the list."}};
  for (const auto& [id, tip] : tips) EXPECT_EQ(On(id).ToolTip(), tip);
}

}  // namespace
}  // namespace tallyrun::testing
