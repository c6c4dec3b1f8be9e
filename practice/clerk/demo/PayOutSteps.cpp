#include "app/frmMainIds.h"
#include "practice/clerk/demo/DemoDay.h"

namespace tallyrun::testing {

namespace {

using namespace frmMainIds;

void SwitchToPayOut(DemoDay& day) {
  day.Main().Click(kOptPayOut);
  day.Answer("confirm-pay-out", "Yes");
  WaitForCaption(day, "Tallyrun v1.0 : Pay Out");
  day.TakePicture("pay-out");
}

void SendPayOut(DemoDay& day) {
  day.Main().Click(kBtnLoadFromBTFile);
  day.Clerk().ChooseFile("Choose Text FIle", day.File("import\\payout_05-01-2010.txt"));
  day.Main().Click(kBtnAutoFields);
  day.Main().Click(kBtnSummarize);
  day.Clerk().Answer("Yes");
  day.TakePicture("pay-out-sheet");
  day.Main().Click(kBtnSend);
  day.Answer("confirm-send-pay-out", "Yes");
  day.Answer("sent-pay-out", "OK");
}

void ReloadPayIn(DemoDay& day) {
  day.Main().Click(kOptPayIn);
  day.Clerk().Answer("Yes");
  WaitForCaption(day, "Tallyrun v1.0 : Pay In");
  day.Main().Click(kBtnReload);
  day.Answer("confirm-reload", "Yes");
  day.TakePicture("reloaded");
}

}  // namespace

const std::vector<DemoStep>& PayOutSteps() {
  static const std::vector<DemoStep> steps = {
      {"Pay Out asks before the sheet is emptied", SwitchToPayOut},
      {"The Pay Out day is imported, filled, summarised and sent without a holding file",
       SendPayOut},
      {"Back in Pay In, Reload brings the day's file back", ReloadPayIn},
  };
  return steps;
}

}  // namespace tallyrun::testing
