// The master lists: an account is added and found, backups are taken and loaded, the lists go to
// the exchange and come from it, and both reports are printed.
#include <functional>

#include "app/frmMainIds.h"
#include "lists/frmListIds.h"
#include "practice/clerk/Hand.h"
#include "practice/clerk/Waiting.h"
#include "practice/clerk/demo/DemoDay.h"

namespace tallyrun::testing {

namespace {

using namespace frmListIds;

constexpr char kListWindow[] = "Tallyrun v1.0 : List of";

void Await(const std::function<bool()>& condition, const char* failure) {
  if (!Holds(condition)) throw DriverError(failure);
}

OpenWindow List(DemoDay& day) { return day.Clerk().Window(kListWindow); }

void AddAccount(DemoDay& day) {
  day.Main().Click(frmMainIds::kBtnList);
  day.Say("   window \"" + List(day).Caption() + "\"");
  day.TakePicture("list-of-bos");
  List(day).Click(kBtnAdd);
  // Add opens the editor on the new row's BO ID; Enter before that has happened would close it.
  Await([&] { return List(day).IsVisible(kTxtEditor); }, "No editor opens over the new row.");
  EditCurrentCell(day, List(day), kTxtEditor, "98765", "new-bo-id");
  PressKey(VK_RIGHT);
  EditCurrentCell(day, List(day), kTxtEditor, "Amity Wrenfield", "new-bo-name");
  PressKey(VK_RIGHT);
  EditCurrentCell(day, List(day), kTxtEditor, "W999", "new-client-code");
}

void SearchAccount(DemoDay& day) {
  List(day).Enter(kTxtItem, "Wrenfield");
  PressKey(VK_RETURN);
  day.TakePicture("account-found");
}

void BackUp(DemoDay& day) {
  List(day).Click(kBtnSaveAsBackup);
  day.Answer("backup-taken", "OK");
}

void SaveAccounts(DemoDay& day) {
  List(day).Click(kBtnSave);
  day.Answer("list-saved", "OK");
}

// The backup was taken of the file as it was before the save.
void LoadBackup(DemoDay& day) {
  List(day).Click(kBtnLoadBackup);
  Await([&] { return List(day).IsVisible(kLstBackups); }, "No backups are shown.");
  day.TakePicture("backups");
  List(day).ClickAt(kLstBackups, {20, 8});
  List(day).Click(kBtnLoad_Backup);
  Await([&] { return !List(day).IsVisible(kLstBackups); }, "The backups stay open.");
  day.TakePicture("backup-loaded");
}

void Reload(DemoDay& day) {
  List(day).Click(kBtnReload);
  day.Answer("confirm-reload-list", "Yes");
}

void SendBoList(DemoDay& day) {
  List(day).Click(kBtnUpdateList);
  day.Answer("list-sent", "OK");
}

void ReceiveIsinList(DemoDay& day) {
  List(day).Choose(kCmbListOf, "List of ISINs");
  day.TakePicture("list-of-isins");
  List(day).Click(kBtnUpdateList);
  day.Answer("list-received", "OK");
  day.TakePicture("received-list");
  List(day).Click(kBtnClose);
  day.Clerk().WaitUntilClosed(kListWindow);
}

void FindNewAccount(DemoDay& day) {
  day.Main().TabTo(frmMainIds::kFlxEntries);
  PressKey(VK_INSERT);
  Await([&] { return day.Main().IsVisible(frmMainIds::kDtpDate); }, "No date picker opens.");
  PressKey(VK_RETURN);
  Await([&] { return !day.Main().IsVisible(frmMainIds::kDtpDate); }, "The picker stays open.");
  PressKeys(VK_RIGHT, 2);
  EditCurrentCell(day, day.Main(), frmMainIds::kTxtEditor, "W999", "type-client-code");
  day.TakePicture("new-account-in-the-sheet");
}

void ReportPayIn(DemoDay& day) {
  day.Main().Click(frmMainIds::kBtnReport);
  LookAtTextEditor(day, "PAY-IN INSTRUCTIONS", "pay-in-report");
}

void ReportPayOut(DemoDay& day) {
  day.Main().Click(frmMainIds::kOptPayOut);
  day.Clerk().Answer("Yes");
  WaitForCaption(day, "Tallyrun v1.0 : Pay Out");
  day.Main().Click(frmMainIds::kBtnReload);
  day.Clerk().Answer("Yes");
  day.Main().Click(frmMainIds::kBtnReport);
  LookAtTextEditor(day, "PAY-OUT INSTRUCTIONS", "pay-out-report");
}

}  // namespace

const std::vector<DemoStep>& ListSteps() {
  static const std::vector<DemoStep> steps = {
      {"List opens the list of BOs; an account is added", AddAccount},
      {"Its name is found by typing a part of it", SearchAccount},
      {"Save As Backup keeps the list as it was saved last", BackUp},
      {"Save makes the new account known", SaveAccounts},
      {"Load From Backup brings the older list into the window", LoadBackup},
      {"Reload brings the saved one back", Reload},
      {"Send takes the list of BOs to the exchange", SendBoList},
      {"Receive fetches the exchange's list of ISINs", ReceiveIsinList},
      {"The sheet finds the new account by its client code", FindNewAccount},
      {"Report prints the Pay In instructions", ReportPayIn},
      {"Report prints the Pay Out instructions", ReportPayOut},
  };
  return steps;
}

}  // namespace tallyrun::testing
