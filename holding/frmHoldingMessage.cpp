#include "holding/frmHoldingMessage.h"

#include "core/Application.h"
#include "holding/CheckHoldings.h"
#include "holding/frmHoldingMessageIds.h"

namespace tallyrun {
namespace {

// Room for a problem's whole line, in pixels at 96 DPI.
constexpr int kWidth = 780;
constexpr int kHeight = 320;

}  // namespace

frmHoldingMessage::frmHoldingMessage()
    : Form(frmHoldingMessageIds::kWindowClass,
           {.width = kWidth, .height = kHeight, .fontFace = "Lucida Console"}) {}

void frmHoldingMessage::ShowFresh(Form* owner) {
  Unload();
  ShowModal(owner);
}

void frmHoldingMessage::Form_Load() {
  SetCaption(CaptionFor("Holding Balance Message."));
  txtMessage.SetText(HoldingMessage);
}

}  // namespace tallyrun
