#include "settings/frmSettings.h"

#include "core/Application.h"
#include "core/Platform.h"
#include "core/entry/Settings.h"
#include "core/files/modFileIO.h"
#include "core/text/Conversion.h"
#include "settings/frmSettingsIds.h"

namespace tallyrun {

frmSettings::frmSettings() : Form(frmSettingsIds::kWindowClass, {.sizable = false}) {
  On(btnSetBackupLocation.Click, &frmSettings::btnSetBackupLocation_Click);
  On(btnSave.Click, &frmSettings::btnSave_Click);
}

void frmSettings::Form_Load() {
  SetCaption(CaptionFor("Settings"));
  txtBrokerID.SetText(Settings.brokerId);
  txtClearingBOID.SetText(Settings.clearingBoid);
  txtDefaultBOIDFormat.SetText(Settings.boidFormat);
  txtBackupPath.SetText(Settings.backupLocation);
  txtBrokerID.SelectAll();
}

void frmSettings::btnSetBackupLocation_Click() {
  const std::string folder = ThePlatform().AskForFolder("Select a backup location.",
                                                        std::string(Trim(txtBackupPath.Text())));
  if (!folder.empty()) txtBackupPath.SetText(folder);
}

void frmSettings::btnSave_Click() {
  for (TextBox* box : {&txtBrokerID, &txtClearingBOID, &txtDefaultBOIDFormat, &txtBackupPath}) {
    box->SetText(std::string(Trim(box->Text())));
  }
  const BrokerSettings typed = {txtBrokerID.Text(), txtClearingBOID.Text(),
                                txtDefaultBOIDFormat.Text(), txtBackupPath.Text()};
  if (!ValidateNumericField(typed.brokerId, kBrokerIdDigits, "Broker ID")) return;
  if (!ValidateNumericField(typed.clearingBoid, kBoidDigits, "Clearing BOID")) return;
  if (!ValidateNumericField(typed.boidFormat, kBoidDigits, "BOID Format")) return;
  if (!FolderExists(typed.backupLocation)) return TellInvalidBackupLocation();
  Settings = typed;
  Settings.backupLocation = WithTrailingBackslash(typed.backupLocation);
  SaveSettings();
  LoadLists();
}

}  // namespace tallyrun
