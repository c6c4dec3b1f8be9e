// The list window's search, and what its buttons ask, tell and do to the files of a list.
#include <gmock/gmock.h>

#include "tests/support/ListWindowFixture.h"

namespace tallyrun::testing {
namespace {

using namespace frmListIds;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kBackup[] = "2010-05-06_14-30-05_BO.txt";

class frmListFilesTest : public ListWindowFixture {
 protected:
  frmListFilesTest() { platform.now = {2010, 5, 6, 14, 30, 5, 0}; }

  // The boxes that a click brings, answered with Yes or No.
  std::vector<Message> BoxesOf(int button, MessageAnswer answer = MessageAnswer::Yes) {
    platform.messages.clear();
    platform.answers = {answer};
    Click(button);
    return platform.messages;
  }
  std::string ClientCode() { return Grid().Text(1, 3); }
};

class frmListSearchTest : public ListWindowFixture {
 protected:
  void Search(const std::string& text) {
    On(kTxtItem).SetFocus();
    On(kTxtItem).SetText(text);
    PressKey(VK_RETURN);
    EXPECT_TRUE(On(kTxtItem).HasFocus());
  }
  void ExpectTextSelected(int length) {
    EXPECT_EQ(SendMessageA(On(kTxtItem).Handle(), EM_GETSEL, 0, 0), MAKELONG(0, length));
  }
};

TEST_F(frmListSearchTest, AFoundRowIsSelectedUpToItsNameAndTheTextWaitsToBeTypedOver) {
  std::vector<std::string> rows;
  for (int row = 1; row <= 200; ++row) rows.push_back("|id|name " + std::to_string(row) + "|c");
  FillRows(Grid(), rows);
  Grid().SetTopRow(1);
  const std::pair<const char*, int> found[] = {
      {" name 2 ", 2}, {"name 150", 150}, {"name 152", 152}};
  for (const auto& [text, row] : found) {
    Search(text);
    EXPECT_EQ(std::vector({Grid().Row(), Grid().RowSel(), Grid().Col(), Grid().ColSel()}),
              std::vector({row, row, 0, 2}));
    EXPECT_EQ(Grid().TopRow(), row == 2 ? 1 : 150);  // a row in sight stays where it is
    ExpectTextSelected(8);
  }
  Search("  ");
  EXPECT_THAT(platform.messages, IsEmpty());
  Search("NAME 2");
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"There is no such BO in the list.", "BO Not Found.", MessageIcon::Critical}));
  EXPECT_EQ(Grid().Row(), 152);
  ExpectTextSelected(6);
  Choose(kIsinKind);
  Search("BIJAY");
  EXPECT_EQ(platform.TakeMessage(), (Message{"There is no such ISIN in the list.", "BO Not Found.",
                                             MessageIcon::Critical}));
}

TEST_F(frmListFilesTest, SaveReloadAndBackupAskAndTell) {
  const std::string saved = folder.Read("BO.txt");
  const Message reload = {"Are you sure to reload the list?", "Reload Confirmation",
                          MessageIcon::Question, MessageButtons::YesNo};
  Grid().SetText(1, 3, "C777");
  EXPECT_THAT(BoxesOf(kBtnSaveAsBackup),
              ElementsAre(Message{"Backup taken successfully.", "Backup succeeded.",
                                  MessageIcon::Information}));
  EXPECT_EQ(folder.Read(kBackup), saved);  // the file, not what the window shows
  EXPECT_THAT(BoxesOf(kBtnReload, MessageAnswer::No), ElementsAre(reload));
  EXPECT_EQ(ClientCode(), "C777");
  EXPECT_THAT(BoxesOf(kBtnReload), ElementsAre(reload));
  EXPECT_EQ(ClientCode(), "C001");
  Grid().SetText(1, 3, "C778");
  EXPECT_THAT(BoxesOf(kBtnSave),
              ElementsAre(Message{"Saved successfully.", "Saved.", MessageIcon::Information}));
  EXPECT_NE(folder.Read("BO.txt").find("C778"), std::string::npos);

  Click(kBtnAdd);
  const int entries = folder.EntryCount();
  for (const int button : {kBtnSave, kBtnSaveAsBackup, kBtnUpdateList}) {
    Grid().SetRow(1);
    EXPECT_THAT(BoxesOf(button), ElementsAre(Message{"Blank row (row number 4) cannot be saved.",
                                                     "Blank Row Found.", MessageIcon::Critical}));
    EXPECT_EQ(std::vector({Grid().Row(), Grid().Col(), Grid().ColSel()}), std::vector({4, 0, 3}));
  }
  EXPECT_EQ(folder.EntryCount(), entries);
  EXPECT_THAT(platform.started, IsEmpty());
  EXPECT_EQ(BoxesOf(kBtnRemove).size(), 1u);
  EXPECT_EQ(Grid().Rows(), 4);
  MouseOnCell(On<FlexGridControl>(kFlxList), WM_LBUTTONDBLCLK, 2, 2);
  EXPECT_TRUE(Editor().HasFocus());
  EXPECT_EQ(Editor().Text(), "BIJAY ABC");
  Click(kBtnClose);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(frmListFilesTest, ABackupIsDeletedAfterAQuestionAndTheMainFileNever) {
  const Message question = {"Are you sure to delete the selected backup?", "Delete Confirmation",
                            MessageIcon::Critical, MessageButtons::YesNo};
  folder.Write(kBackup, "old");
  folder.Write("a_BO.txt", "older");
  Click(kBtnLoadBackup);
  EXPECT_EQ(On(kLblTitle_Backup).Text(), "List of BOs");
  EXPECT_THAT(BoxesOf(kBtnDelete_Backup),
              ElementsAre(Message{"This is currently the main file. You cannot delete this.",
                                  "Deletion Failed", MessageIcon::Critical}));
  Backups().SetListIndex(1);
  EXPECT_THAT(BoxesOf(kBtnDelete_Backup, MessageAnswer::No), ElementsAre(question));
  EXPECT_EQ(folder.EntryCount(), 4);
  EXPECT_THAT(BoxesOf(kBtnDelete_Backup),
              ElementsAre(question, Message{"Backup deleted successfully.", "Delete Succeeded",
                                            MessageIcon::Information}));
  EXPECT_FALSE(folder.Has("a_BO.txt"));
  EXPECT_EQ(Backups().ItemText(2), "") << "two are left";
  EXPECT_EQ(Backups().ListIndex(), 0);
  Click(kBtnCancel_Backup);
  EXPECT_FALSE(On(kFrameBackup).Visible());
  EXPECT_TRUE(On(kBtnSave).Enabled());
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

TEST_F(frmListFilesTest, EachListHasItsTextsAndWidths) {
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
       {200, 200, 2000, 200}},
  };
  for (const auto& each : cases) {
    const std::string title = std::string("List of ") + each.kind + "s";
    folder.Write(std::string(each.kind) + ".txt", each.captions);
    Choose(each.kind);
    EXPECT_EQ(form.Caption(), "Tallyrun v1.0 : " + title);
    EXPECT_EQ(On(kCmbListOf).Text(), title);
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
      {kBtnDelete_Backup, "Load the selected backup in the list."},
  };
  for (const auto& [id, tip] : tips) EXPECT_EQ(On(id).ToolTip(), tip);
}

}  // namespace
}  // namespace tallyrun::testing
