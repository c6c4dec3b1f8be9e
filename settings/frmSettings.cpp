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
  const struct {
    Label& label;
    TextBox& box;
  } rows[] = {{lblBrokerID, txtBrokerID},
              {lblClearingBOID, txtClearingBOID},
              {lblDefaultBOIDFormat, txtDefaultBOIDFormat},
              {lblBackupPath, txtBackupPath}};
  const int edge = area.Scale(spacing::kEdge);
  const int gap = area.Scale(spacing::kRelated);
  const int height = area.BoxHeight();
  const int boxWidth = area.Scale(kBoxWidth);
  const int browseWidth = area.ButtonWidth(btnSetBackupLocation.Text());
  const int saveWidth = area.ButtonWidth(btnSave.Text());

  int labelWidth = 0;
  for (const auto& row : rows) labelWidth = std::max(labelWidth, area.TextWidth(row.label.Text()));
  const int boxX = edge + labelWidth + area.Scale(spacing::kUnrelated);
  const int width = boxX + boxWidth + gap + browseWidth + edge;

  int y = edge;
  for (const auto& row : rows) {
    area.Place(row.label, {edge, y, labelWidth, height});
    area.Place(row.box, {boxX, y, boxWidth, height});
    y += height + gap;
  }
  area.Place(btnSetBackupLocation, {boxX + boxWidth + gap, y - height - gap, browseWidth, height});
  y += area.Scale(spacing::kUnrelated) - gap;
  area.Place(btnSave, {width - edge - saveWidth, y, saveWidth, area.ButtonHeight()});
  area.SetMinimum(width, y + area.ButtonHeight() + edge);
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
