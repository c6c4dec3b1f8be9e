// The holding message window's one control, and its place.
#include "holding/frmHoldingMessage.h"
#include "holding/frmHoldingMessageIds.h"

namespace tallyrun {
namespace {

// Room for a few of the problems at least, in pixels at 96 DPI.
constexpr int kLeastWidth = 220;
constexpr int kLeastHeight = 100;

}  // namespace

void frmHoldingMessage::CreateControls() {
  txtMessage.Create(*this, frmHoldingMessageIds::kTxtMessage, TextBoxKind::ReadOnlyLines);
}

void frmHoldingMessage::Layout(LayoutArea& area) {
  area.Fill(txtMessage, area.Scale(kLeastWidth), area.Scale(kLeastHeight));
}

}  // namespace tallyrun
