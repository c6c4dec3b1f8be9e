// The list window's controls, made in the order of Tab, and their places.
#include <algorithm>

#include "lists/ListKind.h"
#include "lists/frmList.h"

namespace tallyrun {
namespace {

// Pixels at 96 DPI.
constexpr int kChooserWidth = 150;
constexpr int kSearchMinimumWidth = 160;
constexpr int kGridMinimumHeight = 220;
constexpr int kFrameWidth = 340;
constexpr int kFrameMaximumHeight = 360;

constexpr char kFrameHint[] = "Select a backup to load it.";
constexpr char kLoadHint[] = "Load the selected backup in the list.";

}  // namespace

// The frame and the editor lie over the grid, so they are made before it.
void frmList::CreateControls() {
  namespace ids = frmListIds;
  CreateBackupFrame();
  cmbListOf.Create(*this, ids::kCmbListOf);
  lblSelect.Create(*this, ids::kLblSelect, "Select :");
  txtItem.Create(*this, ids::kTxtItem, TextBoxKind::SingleLine,
                 "Type the significant letters and Press <ENTER>.");
  txtEditor.Create(*this, ids::kTxtEditor);
  txtEditor.SetVisible(false);
  flxList.Create(*this, ids::kFlxList);
  btnAdd.Create(*this, ids::kBtnAdd, "Add", "Add a new row in the list.");
  btnRemove.Create(*this, ids::kBtnRemove, "Remove", "Remove the selected row from the list.");
  btnReload.Create(*this, ids::kBtnReload, "&Reload", "Reload the list.");
  btnSave.Create(*this, ids::kBtnSave, "Save", "Save the list.");
  btnSaveAsBackup.Create(*this, ids::kBtnSaveAsBackup, "Save As Backup", "Save the list.");
  btnLoadBackup.Create(*this, ids::kBtnLoadBackup, "Load From Backup",
                       "Load the list from backup.");
  btnUpdateList.Create(*this, ids::kBtnUpdateList, "Send");
  btnClose.Create(*this, ids::kBtnClose, "Close", "Close the list and get back to data entry.");
}

void frmList::CreateBackupFrame() {
  namespace ids = frmListIds;
  frameBackup.Create(*this, ids::kFrameBackup, kFrameHint);
  frameBackup.SetVisible(false);
  lblTitle_Backup.Create(frameBackup, ids::kLblTitle_Backup, "", kFrameHint);
  lstBackups.Create(frameBackup, ids::kLstBackups, "List of backups");
  btnLoad_Backup.Create(frameBackup, ids::kBtnLoad_Backup, "Load", kLoadHint);
  btnCancel_Backup.Create(frameBackup, ids::kBtnCancel_Backup, "Cancel",
                          "Cancel loading any backup.");
  btnDelete_Backup.Create(frameBackup, ids::kBtnDelete_Backup, "Delete", kLoadHint);
}

void frmList::Layout(LayoutArea& area) {
  // Wide enough for either list, so that nothing moves when the list is switched.
  const int kinds = std::max(area.TextWidth(ListTextsOf(kBoKind).selectCaption),
                             area.TextWidth(ListTextsOf(kIsinKind).selectCaption));
  const LayoutItem chooser(cmbListOf, area.Scale(kChooserWidth));
  const LayoutItem select(lblSelect, kinds);
  const LayoutItem item(txtItem, LayoutItem::kAllThatIsLeft, area.Scale(kSearchMinimumWidth));
  const LayoutItem update(btnUpdateList, area.ButtonWidth("Receive"));
  const LayoutItem apart = area.Apart();
  const LayoutItem rest;

  area.TopRow({chooser, apart, select, item});
  area.BottomRow({btnAdd, btnRemove, btnReload, btnSave, apart, btnSaveAsBackup, btnLoadBackup,
                  apart, update, rest, btnClose});
  LayoutBackupFrame(area, area.Fill(flxList, 0, area.Scale(kGridMinimumHeight)));
}

// In the middle of the grid. Delete stands apart, as it cannot be taken back.
void frmList::LayoutBackupFrame(LayoutArea& area, const PixelRect& grid) {
  const int width = std::min(area.Scale(kFrameWidth), grid.width);
  const int height = std::min(area.Scale(kFrameMaximumHeight), grid.height);
  area.Place(frameBackup, {grid.x + (grid.width - width) / 2, grid.y + (grid.height - height) / 2,
                           width, height});
  area.GoInside(width, height);
  const LayoutItem rest;
  area.TopRow({{lblTitle_Backup, LayoutItem::kAllThatIsLeft, 0}});
  area.BottomRow({btnLoad_Backup, btnCancel_Backup, rest, btnDelete_Backup});
  area.Fill(lstBackups, 0, 0);
}

}  // namespace tallyrun
