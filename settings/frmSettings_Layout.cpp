// The settings dialog's controls, made in the order of Tab, and their places.
#include <algorithm>

#include "settings/frmSettings.h"
#include "settings/frmSettingsIds.h"

namespace tallyrun {
namespace {

// Room for a usual folder's path, in pixels at 96 DPI.
constexpr int kBoxWidth = 320;

}  // namespace

void frmSettings::CreateControls() {
  using namespace frmSettingsIds;
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

}  // namespace tallyrun
