// Sending from the real window: captions, pointer and the order of the boxes, with the client's
// output scripted.
#include <gmock/gmock.h>

#include "lists/frmListIds.h"
#include "tests/support/GridText.h"
#include "tests/support/MainWindowFixture.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;
using ::testing::ElementsAre;

const std::string kIdle = "Tallyrun v1.0 : Pay In";

// A row as Auto-Fill leaves it.
std::string Row(const std::string& boName = "ANN ALDER",
                const std::string& isinName = "ALPHA MILLS LTD",
                const std::string& reference = "I1234560301101", const std::string& bo = "1") {
  return "1|123456|1201950000009999|03-Jan-2010|05-Jan-2010|C1|120195000000000" + bo + "|" +
         boName + "|ALPHAM|KX0001000011|" + isinName + "|100|" + reference;
}

class frmMainSendTest : public MainWindowFixture {
 protected:
  frmMainSendTest() { PickDay(On<DatePicker>(kDtpPayInOrPayOut), {2010, 1, 5}); }

  void ExpectShown(const std::string& caption, LPCSTR pointer = IDC_ARROW) {
    EXPECT_EQ(window.Caption(), caption);
    SendMessageA(window.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window.Handle()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, pointer));
  }
};

TEST_F(frmMainSendTest, EveryStopTellsWhyAndPutsCaptionAndPointerBack) {
  const auto unknownIsin = Row("ANN ALDER", "ISIN NAME NOT FOUND");
  const struct {
    const char *title, *text;
    std::vector<std::string> rows;
  } stops[] = {
      {"Missing BO Name", "BO Name is not given in row number 1.", {Row(" ")}},
      {"Invalid ISIN Code", "ISIN Code is not entered correctly in row number 1.", {unknownIsin}},
      // An unknown account goes first, in whichever row.
      {"Invalid BOID",
       "BOID is not entered correctly in row number 2.",
       {unknownIsin, Row("BO NAME NOT FOUND")}},
      {"Invalid Internal Ref. No.",
       "For Pay In entries Internal Ref. No. must start with \"I\" .\r\nCheck row number 1.",
       {Row("ANN ALDER", "ALPHA MILLS LTD", "O1")}},
      // Equal rows are found wherever they stand: the rows are sorted first.
      {"Not Summarized.",
       "Please summarize records before sending.",
       {Row(), Row("BEN BIRCH", "ALPHA MILLS LTD", "I2", "2"), Row()}},
      {"Holding Not Checked.",
       "You must select a holding file(DPA6UX.TXT) before sending to KTX.",
       {Row()}}};
  const Message question = {
      "Are you sure to send the entered records to KTX as Pay In file of 05-Jan-2010 ?",
      "Pay In of 05-Jan-2010 Send Confirmation", MessageIcon::Question, MessageButtons::YesNo};
  for (const auto& each : stops) {
    FillRows(Sheet(), each.rows);
    platform.messages.clear();
    platform.answers = {MessageAnswer::Yes};
    Click(kBtnSend);
    EXPECT_THAT(platform.messages,
                ElementsAre(question, Message{each.text, each.title, MessageIcon::Critical}));
    ExpectShown(kIdle);
  }
  platform.messages.clear();
  Click(kBtnSend);  // declined
  EXPECT_EQ(platform.TakeMessage(), question);
  EXPECT_TRUE(platform.started.empty());
}

TEST_F(frmMainSendTest, ATransferMeanwhileIsRefusedAndTheFirstEndsAsItBegan) {
  const std::string idle = "Tallyrun v1.0 : Pay Out";
  Click(kOptPayOut);
  FillRows(Sheet(), {Row("ANN ALDER", "ALPHA MILLS LTD", "O1")});
  folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~a~b~c");
  platform.answers = {MessageAnswer::Yes, MessageAnswer::Yes, MessageAnswer::Yes};
  std::string captionOfBox;
  platform.onMessage = [&](const Message&) { captionOfBox = window.Caption(); };
  const auto meanwhile = [&] {
    const int files = folder.EntryCount();
    Click(kBtnSend);
    EXPECT_EQ(platform.messages.back(), Message{"Permission denied"});
    EXPECT_EQ(captionOfBox, idle);
    Click(kBtnList);
    Form& list = *Form::LoadedForms().back();
    ClickOn(ControlOf<Control>(list, frmListIds::kBtnUpdateList));
    EXPECT_EQ(platform.messages.back(), Message{"Permission denied"});
    EXPECT_EQ(list.Caption(), "Tallyrun v1.0 : List of BOs");
    EXPECT_EQ(folder.EntryCount(), files);
    ExpectShown(idle + "...Sending records to KTX...Please wait.", IDC_WAIT);
    Click(kOptPayIn);
  };
  std::deque<std::string> outputs = {"550 The system cannot find the file specified.",
                                     "226 Transfer complete."};
  platform.onStart = [&](const std::string& commandLine, WindowMode) {
    if (commandLine.find("ftp2KTX.bat") == std::string::npos) return nullptr;
    if (outputs.size() == 2) meanwhile();
    folder.Write("out.txt", outputs.front());
    outputs.pop_front();
    return nullptr;
  };
  Click(kBtnSend);
  EXPECT_EQ(platform.messages.back().title, "Send succeeded");
  ExpectShown(kIdle);
  // What was checked was sent, though the sheet has been cleared since.
  EXPECT_THAT(folder.Read("05-Jan-2010_PO_123456.txt"), ::testing::HasSubstr("~100~O1"));
}

}  // namespace
}  // namespace tallyrun::testing
