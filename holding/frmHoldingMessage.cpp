#include "holding/frmHoldingMessage.h"

#include "core/Application.h"
#include "holding/CheckHoldings.h"
#include "holding/frmHoldingMessageIds.h"

namespace tallyrun {
namespace {

// In pixels at 96 DPI: room for a problem's whole line, and for a few of them at least.
constexpr int kWidth = 780;
constexpr int kHeight = 320;
constexpr int kLeastWidth = 220;
constexpr int kLeastHeight = 100;

}  // namespace

frmHoldingMessage::frmHoldingMessage()
    : Form(frmHoldingMessageIds::kWindowClass, {.width = kWidth, .height = kHeight}) {
  txtMessage.SetFontFace("Lucida Console");
}

void frmHoldingMessage::ShowFresh(Form* owner) {
  Unload();
  ShowModal(owner);
}

void frmHoldingMessage::CreateControls() {
  txtMessage.Create(*this, frmHoldingMessageIds::kTxtMessage, TextBoxKind::ReadOnlyLines);
}

void frmHoldingMessage::Layout(LayoutArea& area) {
  area.Fill(txtMessage, area.Scale(kLeastWidth), area.Scale(kLeastHeight));
}

void frmHoldingMessage::Form_Load() {
  SetCaption(CaptionFor("Holding Balance Message."));
  txtMessage.SetText(HoldingMessage);
}

}  // namespace tallyrun
