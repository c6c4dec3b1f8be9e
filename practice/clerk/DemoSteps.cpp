#include "practice/clerk/DemoSteps.h"

#include "app/frmMainIds.h"
#include "lists/frmListIds.h"
#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {
namespace {

using namespace frmMainIds;

constexpr char kHoldingFile[] = "11DPA6UX.TXT";
constexpr char kCorrectedHoldingFile[] = "corrected\\11DPA6UX.TXT";
constexpr int kQuantityColumn = 11;

// Presses a button of the main window that shows what it did in the sheet.
void Press(Workday& day, int button, const char* picture) {
  day.Main().Click(button);
  day.TakePicture(picture);
}

void Summarize(Workday& day, const char* picture = "") {
  day.Main().Click(kBtnSummarize);
  day.Answer("Yes", picture);
}

void FindShortfall(Workday& day) {
  day.Main().Click(kBtnCheck);
  day.ChooseHoldingFile(kHoldingFile);
  const std::string title = "Tallyrun v1.0 : Holding Balance Message.";
  // Its text box is the one control that it has.
  const std::string message = TextOf(ChildrenOf(day.Clerk().Window(title).Handle()).front());
  day.TakePicture("holding-message");
  for (size_t at = 0, end; (end = message.find("\r\n", at)) != std::string::npos; at = end + 2) {
    day.Say("   " + message.substr(at, end - at));
  }
  PressKey(VK_F4, {VK_MENU});
  day.Clerk().WaitUntilClosed(title);
  // The first of the rows is selected; what the account holds is what it can deliver.
  const std::string before = "Holding balance : ";
  const size_t balance = message.find(before) + before.size();
  day.EditCurrentRow(kQuantityColumn,
                     message.substr(balance, message.find("\r\n", balance) - balance),
                     "correct-row");
  day.TakePicture("corrected");
}

void CheckAgain(Workday& day) {
  day.Main().Click(kBtnCheck);
  day.ChooseHoldingFile(kCorrectedHoldingFile);
  day.Answer("OK", "holdings-in-order");
}

void Save(Workday& day) {
  day.Main().Click(kBtnSave);
  day.Answer("Yes", "confirm-save");
  day.Answer("OK", "saved");
}

void SendPayIn(Workday& day) {
  day.Send("confirm-send");
  day.ChooseHoldingFile(kCorrectedHoldingFile);
  day.Answer("OK", "sent");
}

void SendAgain(Workday& day) {
  day.Send();
  day.ChooseHoldingFile(kCorrectedHoldingFile);
  day.Answer("OK", "already-sent");
  day.CloseTextEditor("05-Jan-2010_PI_410275.txt", "sent-file");
  day.AwaitCaption(day.Main(), "Tallyrun v1.0 : Pay In");
}

void SendPayOut(Workday& day) {
  day.Import("payout_05-01-2010.txt");
  day.Main().Click(kBtnAutoFields);
  Summarize(day);
  day.TakePicture("pay-out-sheet");
  day.Send("confirm-send-pay-out");
  day.Answer("OK", "sent-pay-out");
}

void SendBoList(Workday& day, const char* picture) {
  day.List().Click(frmListIds::kBtnUpdateList);
  day.Answer("OK", picture);
}

void AddAccount(Workday& day) {
  const auto enter = [&](const char* text, const char* picture) {
    day.EditCurrentCell(day.List(), frmListIds::kTxtEditor, text, picture);
  };
  day.List().Click(frmListIds::kBtnAdd);
  // Add opens the editor on the new row's BO ID; Enter before that has happened would close it.
  Await([&] { return day.List().IsVisible(frmListIds::kTxtEditor); }, "No editor opens.");
  enter("98765", "new-bo-id");
  PressKey(VK_RIGHT);
  enter("Amity Wrenfield", "new-bo-name");
  PressKey(VK_RIGHT);
  enter("W999", "new-client-code");
}

void SearchAccount(Workday& day) {
  day.List().Enter(frmListIds::kTxtItem, "Wrenfield");
  PressKey(VK_RETURN);
  day.TakePicture("account-found");
}

// The backup was taken of the file as it was before the save.
void LoadBackup(Workday& day) {
  const OpenWindow list = day.List();
  list.Click(frmListIds::kBtnLoadBackup);
  Await([&] { return list.IsVisible(frmListIds::kLstBackups); }, "No backups are shown.");
  day.TakePicture("backups");
  list.ClickAt(frmListIds::kLstBackups, {20, 8});
  list.Click(frmListIds::kBtnLoad_Backup);
  Await([&] { return !list.IsVisible(frmListIds::kLstBackups); }, "The backups stay open.");
  day.TakePicture("backup-loaded");
}

void ReceiveIsinList(Workday& day) {
  day.ChooseList("ISIN");
  day.TakePicture("list-of-isins");
  day.List().Click(frmListIds::kBtnUpdateList);
  day.Answer("OK", "list-received");
  day.TakePicture("received-list");
  day.CloseList();
}

void FindNewAccount(Workday& day) {
  day.Main().TabTo(kFlxEntries);
  PressKey(VK_INSERT);
  Await([&] { return day.Main().IsVisible(kDtpDate); }, "No date picker opens.");
  PressKey(VK_RETURN);
  Await([&] { return !day.Main().IsVisible(kDtpDate); }, "The picker stays open.");
  PressKeys(VK_RIGHT, 2);
  day.EditCurrentCell(day.Main(), kTxtEditor, "W999", "type-client-code");
  day.TakePicture("new-account-in-the-sheet");
}

void Report(Workday& day, const char* file, const char* picture) {
  day.Main().Click(kBtnReport);
  day.CloseTextEditor(file, picture);
}

}  // namespace

const std::vector<DemoStep> kDemoSteps = {
    {"Tallyrun starts in Pay In, with an empty sheet",
     [](Workday& day) {
       day.AwaitCaption(day.Main(), "Tallyrun v1.0 : Pay In");
       day.TakePicture("start");
     }},
    {"Load Payin imports the day's trade file",
     [](Workday& day) {
       day.Import("payin_05-01-2010.txt");
       day.TakePicture("import");
     }},
    {"Auto-Fill completes the rows", [](Workday& day) { Press(day, kBtnAutoFields, "auto-fill"); }},
    {"Summarize joins the rows of the same account and security",
     [](Workday& day) {
       Summarize(day, "confirm-summarize");
       day.TakePicture("summarize");
     }},
    {"Search finds a name",
     [](Workday& day) {
       day.Main().Choose(kCmbSearch, "BO Name");
       day.Main().Enter(kTxtSearch, "ostvar");
       Press(day, kBtnSearch, "search");
     }},
    {"Search says so when there is none",
     [](Workday& day) {
       day.Main().Enter(kTxtSearch, "nobody of this name");
       day.Main().Click(kBtnSearch);
       day.Answer("OK", "search-in-vain");
     }},
    // The row that was found is still the current one.
    {"The row's quantity is corrected by keyboard",
     [](Workday& day) {
       day.EditCurrentRow(kQuantityColumn, "1,250", "edit-cell");
       day.TakePicture("edited");
     }},
    {"Check Holding finds what the accounts lack; the clerk corrects the row", FindShortfall},
    {"With the depository's corrected file all is in order", CheckAgain},
    {"Save writes the day's entry file", Save},
    {"Send brings the day's file to the exchange", SendPayIn},
    {"A second send finds it there, and shows it", SendAgain},
    {"Pay Out asks before the sheet is emptied",
     [](Workday& day) {
       day.SwitchTo("Pay Out", "confirm-pay-out");
       day.TakePicture("pay-out");
     }},
    {"The Pay Out day is imported, filled, summarised and sent without a holding file", SendPayOut},
    {"Back in Pay In, Reload brings the day's file back",
     [](Workday& day) {
       day.SwitchTo("Pay In");
       day.Reload("confirm-reload");
       day.TakePicture("reloaded");
     }},
    {"List opens the list of BOs; Send takes it to the exchange",
     [](Workday& day) {
       day.ChooseList("BO");
       day.TakePicture("list-of-bos");
       SendBoList(day, "list-sent");
     }},
    {"Add opens a new account", AddAccount},
    {"Its name is found by typing a part of it", SearchAccount},
    {"Save As Backup keeps the list as it was saved last",
     [](Workday& day) {
       day.List().Click(frmListIds::kBtnSaveAsBackup);
       day.Answer("OK", "backup-taken");
     }},
    {"Save makes the new account known",
     [](Workday& day) {
       day.List().Click(frmListIds::kBtnSave);
       day.Answer("OK", "list-saved");
     }},
    {"Load From Backup brings the older list into the window", LoadBackup},
    {"Reload brings the saved one back",
     [](Workday& day) {
       day.List().Click(frmListIds::kBtnReload);
       day.Answer("Yes", "confirm-reload-list");
     }},
    {"Send takes the new list to the exchange, which keeps the older one",
     [](Workday& day) { SendBoList(day, "new-list-sent"); }},
    {"Receive fetches the exchange's list of ISINs", ReceiveIsinList},
    {"The sheet finds the new account by its client code", FindNewAccount},
    {"Report prints the Pay In instructions",
     [](Workday& day) { Report(day, "PAY-IN INSTRUCTIONS", "pay-in-report"); }},
    {"Report prints the Pay Out instructions",
     [](Workday& day) {
       day.SwitchTo("Pay Out");
       day.Reload();
       Report(day, "PAY-OUT INSTRUCTIONS", "pay-out-report");
     }},
};

}  // namespace tallyrun::testing
