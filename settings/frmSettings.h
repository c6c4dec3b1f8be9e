// The settings dialog: the broker's identity and the working folder. What saving means stands in
// SettingsEntry.
#pragma once

#include "core/entry/Settings.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace tallyrun {

class frmSettings : public Form {
 public:
  frmSettings();

  Label lblBrokerID;
  TextBox txtBrokerID;
  Label lblClearingBOID;
  TextBox txtClearingBOID;
  Label lblDefaultBOIDFormat;
  TextBox txtDefaultBOIDFormat;
  Label lblBackupPath;
  TextBox txtBackupPath;
  Button btnSetBackupLocation;
  Button btnSave;

 protected:
  void CreateControls() override;
  void Layout(LayoutArea& area) override;
  void Form_Load() override;

 private:
  void btnSetBackupLocation_Click();
  void btnSave_Click();

  BrokerSettings Entry() const;
  void ShowEntry(const BrokerSettings& entry);
};

// Shows the dialog modally over `owner`, which may be null, and returns when it is closed.
void ShowSettingsDialog(Form* owner);
// The same while no other window is open.
void OpenSettingsDialog();
// Closes the dialog if it is open.
void UnloadSettingsDialog();

}  // namespace tallyrun
