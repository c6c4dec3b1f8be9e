#include "app/frmMainIds.h"
#include "practice/clerk/Waiting.h"
#include "practice/clerk/demo/DemoDay.h"

namespace tallyrun::testing {

namespace {

using namespace frmMainIds;

constexpr char kHoldingDialog[] = "Choose Holding FIle (11DPA6UX.TXT)";
constexpr char kMessageTitle[] = "Tallyrun v1.0 : Holding Balance Message.";

// What the message window says; its text box is the one control that it has.
std::string HoldingMessage(DemoDay& day) {
  return TextOf(ChildrenOf(day.Clerk().Window(kMessageTitle).Handle()).front());
}

void FindShortfall(DemoDay& day) {
  day.Main().Click(kBtnCheck);
  day.Clerk().ChooseFile(kHoldingDialog, day.File("import\\11DPA6UX.TXT"));
  const std::string message = HoldingMessage(day);
  day.TakePicture("holding-message");
  for (size_t at = 0, end; (end = message.find("\r\n", at)) != std::string::npos; at = end + 2) {
    day.Say("   " + message.substr(at, end - at));
  }
  // The first of the rows is selected; what the account holds is what it can deliver.
  const std::string before = "Holding balance : ";
  const size_t balance = message.find(before) + before.size();
  PressKey(VK_F4, {VK_MENU});
  day.Clerk().WaitUntilClosed(kMessageTitle);
  EditCurrentRow(day, kQuantityColumn,
                 message.substr(balance, message.find("\r\n", balance) - balance), "correct-row");
  day.TakePicture("corrected");
}

void CheckAgain(DemoDay& day) {
  day.Main().Click(kBtnCheck);
  day.Clerk().ChooseFile(kHoldingDialog, day.File("import\\corrected\\11DPA6UX.TXT"));
  day.Answer("holdings-in-order", "OK");
}

void Save(DemoDay& day) {
  day.Main().Click(kBtnSave);
  day.Answer("confirm-save", "Yes");
  day.Answer("saved", "OK");
}

void Send(DemoDay& day) {
  day.Main().Click(kBtnSend);
  day.Answer("confirm-send", "Yes");
  day.Clerk().ChooseFile(kHoldingDialog, day.File("import\\corrected\\11DPA6UX.TXT"));
  day.Answer("sent", "OK");
}

void SendAgain(DemoDay& day) {
  day.Main().Click(kBtnSend);
  day.Clerk().Answer("Yes");
  day.Clerk().ChooseFile(kHoldingDialog, day.File("import\\corrected\\11DPA6UX.TXT"));
  day.Answer("already-sent", "OK");
  LookAtTextEditor(day, "05-Jan-2010_PI_410275.txt", "sent-file");
  WaitForCaption(day, "Tallyrun v1.0 : Pay In");
}

}  // namespace

const std::vector<DemoStep>& SendSteps() {
  static const std::vector<DemoStep> steps = {
      {"Check Holding finds what the accounts lack; the clerk corrects the row", FindShortfall},
      {"With the depository's corrected file all is in order", CheckAgain},
      {"Save writes the day's entry file", Save},
      {"Send brings the day's file to the exchange", Send},
      {"A second send finds it there, and shows it", SendAgain},
  };
  return steps;
}

}  // namespace tallyrun::testing
