#include "app/frmMainIds.h"
#include "practice/clerk/demo/DemoDay.h"

namespace tallyrun::testing {

namespace {

using namespace frmMainIds;

void Start(DemoDay& day) {
  day.Say("   window \"" + day.Main().Caption() + "\"");
  day.TakePicture("start");
}

void Import(DemoDay& day) {
  day.Main().Click(kBtnLoadFromBTFile);
  day.Clerk().ChooseFile("Choose Text FIle", day.File("import\\payin_05-01-2010.txt"));
  day.TakePicture("import");
}

void AutoFill(DemoDay& day) {
  day.Main().Click(kBtnAutoFields);
  day.TakePicture("auto-fill");
}

void Summarize(DemoDay& day) {
  day.Main().Click(kBtnSummarize);
  day.Answer("confirm-summarize", "Yes");
  day.TakePicture("summarize");
}

void Search(DemoDay& day) {
  day.Main().Choose(kCmbSearch, "BO Name");
  day.Main().Enter(kTxtSearch, "ostvar");
  day.Main().Click(kBtnSearch);
  day.TakePicture("search");
}

void SearchInVain(DemoDay& day) {
  day.Main().Enter(kTxtSearch, "nobody of this name");
  day.Main().Click(kBtnSearch);
  day.Answer("search-in-vain", "OK");
}

void EditCell(DemoDay& day) {
  // The row that was found is still the current one.
  EditCurrentRow(day, kQuantityColumn, "1,250", "edit-cell");
  day.TakePicture("edited");
}

}  // namespace

const std::vector<DemoStep>& EntrySheetSteps() {
  static const std::vector<DemoStep> steps = {
      {"Tallyrun starts in Pay In, with an empty sheet", Start},
      {"Load Payin imports the day's trade file", Import},
      {"Auto-Fill completes the rows", AutoFill},
      {"Summarize joins the rows of the same account and security", Summarize},
      {"Search finds a name", Search},
      {"Search says so when there is none", SearchInVain},
      {"The row's quantity is corrected by keyboard", EditCell},
  };
  return steps;
}

}  // namespace tallyrun::testing
