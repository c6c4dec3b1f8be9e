// Sending and checking from the real window: captions, pointer and the order of the boxes, with
// the client's output scripted.
#include <gmock/gmock.h>

#include "core/files/modFileIO.h"
#include "lists/frmListIds.h"
#include "tests/support/GridText.h"
#include "tests/support/MainWindowFixture.h"
#include "ui/MessageLoop.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;
using ::testing::ElementsAre;

const std::string kIdle = "Tallyrun v1.0 : Pay In";
const std::string kSending = kIdle + "...Sending records to KTX...Please wait.";
constexpr char kNotThere[] = "550 The system cannot find the file specified.";
constexpr char kStored[] = "226 Transfer complete.";
constexpr char kEntryFile[] = "05-Jan-2010_PI_123456.txt";

class frmMainSendTest : public MainWindowFixture {
 protected:
  frmMainSendTest() {
    PickDay(On<DatePicker>(kDtpPayInOrPayOut), {2010, 1, 5});
    FillSheet();
    holdingFile = folder.Write("11DPA6UX.TXT",
                               "Report for BROKER :\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"
                               "1201950000000001 KX0001000011 100");
    platform.onMessage = [this](const Message& message) {
      captions.push_back(window.Caption() + (IsHourglass() ? " (hourglass)" : ""));
      if (message.buttons == MessageButtons::YesNo) platform.answers = {answer};
    };
    platform.onStart = [this](const std::string& commandLine, WindowMode) {
      if (commandLine.find("ftp2KTX.bat") != std::string::npos) {
        captions.push_back("transfer: " + window.Caption());
        if (onTransfer) onTransfer();
        if (!outputs.empty()) folder.Write("out.txt", outputs.front());
        if (!outputs.empty()) outputs.pop_front();
      }
      return nullptr;
    };
  }

  void FillSheet() {
    FillRows(Sheet(), {"1|123456|1201950000009999|03-Jan-2010|05-Jan-2010|C1|1201950000000001|"
                       "ANN ALDER|ALPHAM|KX0001000011|ALPHA MILLS LTD|100|I1234560301101"});
  }

  void AddRowLikeTheFirst() {
    const int added = Sheet().Rows();
    Sheet().SetRows(added + 1);
    for (int col = 0; col < Sheet().Cols(); ++col) {
      Sheet().SetText(added, col, Sheet().Text(1, col));
    }
  }

  void Send(std::deque<std::string> clientOutputs = {}) {
    outputs = std::move(clientOutputs);
    captions.clear();
    platform.messages.clear();
    platform.files = {holdingFile};
    Click(kBtnSend);
  }

  bool IsHourglass() {
    SendMessageA(window.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window.Handle()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return GetCursor() == LoadCursorA(nullptr, IDC_WAIT);
  }

  void ExpectIdle() {
    EXPECT_EQ(window.Caption(), kIdle);
    EXPECT_FALSE(IsHourglass());
  }

  MessageAnswer answer = MessageAnswer::Yes;
  std::optional<std::string> holdingFile;
  std::deque<std::string> outputs;  // of the client, transfer after transfer
  std::function<void()> onTransfer;
  std::vector<std::string> captions;  // at every box and every transfer
};

TEST_F(frmMainSendTest, EveryStopPutsCaptionAndPointerBack) {
  const auto set = [this](int col, const char* text) {
    return [this, col, text] { Sheet().SetText(1, col, text); };
  };
  const struct {
    const char *title, *text;
    std::function<void()> prepare;
  } stops[] = {
      {"Missing BO Name", "BO Name is not given in row number 1.", set(EntryColumn::kBoName, " ")},
      {"Invalid ISIN Code", "ISIN Code is not entered correctly in row number 1.",
       set(EntryColumn::kIsinName, "ISIN NAME NOT FOUND")},
      // An unknown account goes first, in whichever row.
      {"Invalid BOID", "BOID is not entered correctly in row number 2.",
       [&] {
         Sheet().SetText(1, EntryColumn::kIsinName, "ISIN NAME NOT FOUND");
         AddRowLikeTheFirst();
         Sheet().SetText(2, EntryColumn::kBoName, "BO NAME NOT FOUND");
       }},
      {"Invalid Internal Ref. No.",
       "For Pay In entries Internal Ref. No. must start with \"I\" .\r\nCheck row number 1.",
       set(EntryColumn::kInternalRef, "O1")},
      // Equal rows are found wherever they stand: the rows are sorted first.
      {"Not Summarized.", "Please summarize records before sending.",
       [&] {
         AddRowLikeTheFirst();
         AddRowLikeTheFirst();
         Sheet().SetText(2, EntryColumn::kBoId, "1201950000000002");
       }},
      {"Holding Not Checked.", "You must select a holding file(DPA6UX.TXT) before sending to KTX.",
       [] {}},
  };
  holdingFile.reset();
  for (const auto& each : stops) {
    SCOPED_TRACE(each.title);
    FillSheet();
    each.prepare();
    Send();
    EXPECT_THAT(
        platform.messages,
        ElementsAre(Message{"Are you sure to send the entered records to KTX as Pay In file of "
                            "05-Jan-2010 ?",
                            "Pay In of 05-Jan-2010 Send Confirmation", MessageIcon::Question,
                            MessageButtons::YesNo},
                    Message{each.text, each.title, MessageIcon::Critical}));
    EXPECT_EQ(captions.size(), 2u);  // no transfer was started
    ExpectIdle();
  }
  answer = MessageAnswer::No;
  Send();
  EXPECT_THAT(captions, ElementsAre(kIdle));
}

TEST_F(frmMainSendTest, AnErrorInTheUploadLeavesItsProgressOnScreenAndOneBeforeDoesNot) {
  Send();  // the client wrote nothing at all
  EXPECT_EQ(platform.messages.back(), Message{"File not found"});
  ExpectIdle();
  Send({kNotThere});
  EXPECT_EQ(platform.messages.back(), Message{"File not found"});
  EXPECT_EQ(window.Caption(), kSending);
  EXPECT_TRUE(IsHourglass());
}

TEST_F(frmMainSendTest, ATransferMeanwhileIsRefusedAndTheFirstEndsAsItBegan) {
  folder.Write("BO.txt", "S/N~BO ID~BO Name~Client Code\r\n1~a~b~c");
  bool first = true;
  onTransfer = [&] {
    if (!std::exchange(first, false)) return;
    const int files = folder.EntryCount();
    Send({kNotThere});
    EXPECT_EQ(platform.messages.back(), Message{"Permission denied"});
    EXPECT_EQ(captions.back(), kIdle);
    Click(kBtnList);
    Form& list = *Form::LoadedForms().back();
    ClickOn(ControlOf<Control>(list, frmListIds::kBtnUpdateList));
    EXPECT_EQ(platform.messages.back(), Message{"Permission denied"});
    EXPECT_EQ(list.Caption(), "Tallyrun v1.0 : List of BOs");
    EXPECT_EQ(folder.EntryCount(), files);
    EXPECT_EQ(window.Caption(), kSending);
    EXPECT_TRUE(IsHourglass());
    Click(kOptPayOut);
    outputs = {kNotThere, kStored};
  };
  Send();
  EXPECT_EQ(platform.messages.back().title, "Send succeeded");
  EXPECT_EQ(window.Caption(), "Tallyrun v1.0 : Pay Out");
  EXPECT_FALSE(IsHourglass());
  // What was checked was sent, though the sheet has been cleared since.
  EXPECT_NE(ReadWholeFile(folder.Path() + kEntryFile).find("~100~I1234560301101"),
            std::string::npos);
}

}  // namespace
}  // namespace tallyrun::testing
