// The settings dialog: edits the broker's identity and the working folder. It is shown modally, and
// stays open after Save until the clerk closes it.
#pragma once

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Panels.h"
#include "ui/TextBox.h"

namespace tallyrun {

class frmSettings : public Form {
 public:
  frmSettings();

 protected:
  void CreateControls() override;
  void Layout(LayoutArea& area) override;
  void Form_Load() override;

 private:
  void btnSetBackupLocation_Click();
  void btnSave_Click();

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
};

}  // namespace tallyrun
