#include "app/frmMainIds.h"
#include "tests/e2e/Hand.h"
#include "tests/e2e/Waiting.h"
#include "tests/e2e/demo/DemoDay.h"

namespace tallyrun::testing {

namespace {

using namespace frmMainIds;

void WaitForCaption(DemoDay& day, const std::string& caption) {
  if (!Holds([&] { return day.Main().Caption() == caption; })) {
    throw DriverError("The caption is not '" + caption + "' but '" + day.Main().Caption() + "'");
  }
}

// Opens the editor of the current cell, types and confirms.
void EditCurrentCell(DemoDay& day, const std::string& text) {
  PressKey(VK_RETURN);
  if (!Holds([&] { return day.Main().IsVisible(kTxtEditor); })) {
    throw DriverError("No editor opens over the cell.");
  }
  TypeText(text);
  day.TakePicture("edit-cell");
  PressKey(VK_RETURN);
  if (!Holds([&] { return !day.Main().IsVisible(kTxtEditor); })) {
    throw DriverError("The editor does not close.");
  }
}

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
  day.Main().TabTo(kFlxEntries);
  PressKeys(VK_RIGHT, 11);
  EditCurrentCell(day, "1,250");
  day.TakePicture("edited");
}

void Save(DemoDay& day) {
  day.Main().Click(kBtnSave);
  day.Answer("confirm-save", "Yes");
  day.Answer("saved", "OK");
  if (GetFileAttributesA(day.File("work\\05-Jan-2010_PI_410275.txt").c_str()) ==
      INVALID_FILE_ATTRIBUTES) {
    throw DriverError("The entry file is not there.");
  }
}

void SwitchToPayOut(DemoDay& day) {
  day.Main().Click(kOptPayOut);
  day.Answer("confirm-pay-out", "Yes");
  WaitForCaption(day, "Tallyrun v1.0 : Pay Out");
  day.TakePicture("pay-out");
}

void ReloadPayIn(DemoDay& day) {
  day.Main().Click(kOptPayIn);
  WaitForCaption(day, "Tallyrun v1.0 : Pay In");
  day.Main().Click(kBtnReload);
  day.Answer("confirm-reload", "Yes");
  day.TakePicture("reloaded");
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
      {"Save writes the day's entry file", Save},
      {"Pay Out asks before the sheet is emptied", SwitchToPayOut},
      {"Reload brings the Pay In file back", ReloadPayIn},
  };
  return steps;
}

}  // namespace tallyrun::testing
