#include "settings/frmSettings.h"

#include <algorithm>

#include "core/Application.h"
#include "core/Platform.h"
#include "core/text/Conversion.h"
#include "settings/SettingsEntry.h"
#include "settings/frmSettingsIds.h"

namespace tallyrun {
namespace {

using namespace frmSettingsIds;

// Room for a usual folder's path, at 96 DPI.
constexpr int kBoxWidth = 320;

frmSettings& SettingsDialog() {
  static frmSettings dialog;
  return dialog;
}

}  // namespace

frmSettings::frmSettings() : Form(kWindowClass, {.sizable = false}) {
  On(btnSetBackupLocation.Click, &frmSettings::btnSetBackupLocation_Click);
  On(btnSave.Click, &frmSettings::btnSave_Click);
}

void frmSettings::CreateControls() {
  lblBrokerID.Create(*this, kLblBrokerID, "Broker ID :");
  txtBrokerID.Create(*this, kTxtBrokerID);
  lblClearingBOID.Create(*this, kLblClearingBOID, "Clearing BOID :");
  txtClearingBOID.Create(*this, kTxtClearingBOID);
  lblDefaultBOIDFormat.Create(*this, kLblDefaultBOIDFormat, "BOID Format :");
  txtDefaultBOIDFormat.Create(*this, kTxtDefaultBOIDFormat);
  lblBackupPath.Create(*this, kLblBackupPath, "Backup Location :");
  txtBackupPath.Create(*this, kTxtBackupPath);
  btnSetBackupLocation.Create(*this, kBtnSetBackupLocation, "Browse");
  btnSave.Create(*this, kBtnSave, "Save");
}

void frmSettings::Layout(LayoutArea& area) {
  int label = 0;
  for (const Label* each :
       {&lblBrokerID, &lblClearingBOID, &lblDefaultBOIDFormat, &lblBackupPath}) {
    label = std::max(label, each->WidthIn(area));
  }
  const int box = area.Scale(kBoxWidth);
  const LayoutItem rest;
  area.TopRow({{lblBrokerID, label}, {txtBrokerID, box}});
  area.TopRow({{lblClearingBOID, label}, {txtClearingBOID, box}});
  area.TopRow({{lblDefaultBOIDFormat, label}, {txtDefaultBOIDFormat, box}});
  area.TopRow({{lblBackupPath, label}, {txtBackupPath, box}, btnSetBackupLocation});
  area.TopRow({rest, btnSave});
}

void frmSettings::Form_Load() {
  SetCaption(CaptionFor("Settings"));
  ShowEntry(Settings);
  txtBrokerID.SelectAll();
}

void frmSettings::btnSetBackupLocation_Click() {
  const std::string folder = ThePlatform().AskForFolder("Select a backup location.",
                                                        std::string(Trim(txtBackupPath.Text())));
  if (!folder.empty()) txtBackupPath.SetText(folder);
}

void frmSettings::btnSave_Click() {
  ShowEntry(TrimmedEntry(Entry()));
  SaveEntry(Entry());
}

BrokerSettings frmSettings::Entry() const {
  return {txtBrokerID.Text(), txtClearingBOID.Text(), txtDefaultBOIDFormat.Text(),
          txtBackupPath.Text()};
}

void frmSettings::ShowEntry(const BrokerSettings& entry) {
  txtBrokerID.SetText(entry.brokerId);
  txtClearingBOID.SetText(entry.clearingBoid);
  txtDefaultBOIDFormat.SetText(entry.boidFormat);
  txtBackupPath.SetText(entry.backupLocation);
}

void ShowSettingsDialog(Form* owner) { SettingsDialog().ShowModal(owner); }

void OpenSettingsDialog() { ShowSettingsDialog(nullptr); }

void UnloadSettingsDialog() { SettingsDialog().Unload(); }

}  // namespace tallyrun
