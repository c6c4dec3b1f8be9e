// The main window's controls, made in the order of Tab, and their places.
#include <algorithm>

#include "app/EntrySearch.h"
#include "app/frmMain.h"

namespace tallyrun {
namespace {

// In pixels at 96 DPI.
constexpr int kSearchTextWidth = 150;
constexpr int kSearchTextMinimum = 90;
constexpr int kDropDownButton = 32;  // and the inner margins
constexpr int kGridMinimumHeight = 160;

}  // namespace

void frmMain::CreateControls() {
  using namespace frmMainIds;
  optPayIn.Create(*this, kOptPayIn, kPayIn.name);
  optPayOut.Create(*this, kOptPayOut, kPayOut.name);
  dtpPayInOrPayOut.Create(*this, kDtpPayInOrPayOut);
  btnLoadFromBTFile.Create(*this, kBtnLoadFromBTFile, kPayIn.importCaption);
  btnReload.Create(*this, kBtnReload, "Reload");
  btnSave.Create(*this, kBtnSave, "Save");
  lblSearch.Create(*this, kLblSearch, "Search");
  cmbSearch.Create(*this, kCmbSearch);
  txtSearch.Create(*this, kTxtSearch);
  btnSearch.Create(*this, kBtnSearch, "Search");
  chkFreeEntry.Create(*this, kChkFreeEntry, "Free Entry",
                      "Check to enter anything anywhere in the above table.");
  // The editors lie over the sheet, so they are made before it.
  txtEditor.Create(*this, kTxtEditor);
  txtEditor.SetVisible(false);
  dtpDate.Create(*this, kDtpDate);
  dtpDate.SetVisible(false);
  flxEntries.Create(*this, kFlxEntries);
  btnAutoFields.Create(*this, kBtnAutoFields, "Auto-Fill",
                       "Fill the automatic fields i.e. Broker ID, Clearing BOID, Deliver Date, "
                       "and Internal Ref. No.");
  btnSummarize.Create(*this, kBtnSummarize, "Summarize");
  btnCheck.Create(*this, kBtnCheck, "Check Holding");
  btnReport.Create(*this, kBtnReport, "Report");
  btnSend.Create(*this, kBtnSend, "Send");
  btnList.Create(*this, kBtnList, "List");
  btnSettings.Create(*this, kBtnSettings, "Settings", "Go to settings.");
  btnExit.Create(*this, kBtnExit, "Exit");
}

void frmMain::Layout(LayoutArea& area) {
  // As wide as what they come to show, so that nothing moves with the mode.
  const int modes = std::max(optPayIn.WidthIn(area), optPayOut.WidthIn(area));
  const int imports =
      std::max(area.ButtonWidth(kPayIn.importCaption), area.ButtonWidth(kPayOut.importCaption));
  int columns = 0;
  for (const SearchColumn& each : kSearchColumns) {
    columns = std::max(columns, area.TextWidth(each.caption));
  }
  const LayoutItem payIn(optPayIn, modes);
  const LayoutItem payOut(optPayOut, modes);
  const LayoutItem import(btnLoadFromBTFile, imports);
  const LayoutItem column(cmbSearch, columns + area.Scale(kDropDownButton));
  const LayoutItem text(txtSearch, area.Scale(kSearchTextWidth), area.Scale(kSearchTextMinimum));
  // The day's picker stands beside the chosen mode.
  const LayoutItem day(dtpPayInOrPayOut);
  const LayoutItem noDay(area.DateWidth() + area.Gap());
  const bool isPayOut = EntryMode == kPayOut;
  const LayoutItem apart = area.Apart();
  const LayoutItem rest;

  area.TopRow({payIn, isPayOut ? noDay : day, apart, import, btnReload, btnSave, rest, lblSearch,
               column, text, btnSearch});
  area.TopRow({payOut, isPayOut ? day : noDay, rest, chkFreeEntry});
  area.BottomRow({btnAutoFields, btnSummarize, btnCheck, btnReport, btnSend, rest, btnList,
                  btnSettings, btnExit});
  area.Fill(flxEntries, 0, area.Scale(kGridMinimumHeight));
}

}  // namespace tallyrun
