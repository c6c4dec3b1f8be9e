// The ids of the holding message window's controls, the same in every build, so that a test or a
// tool can find them. Plain numbers: nothing else is needed to read this.
#pragma once

namespace tallyrun::frmHoldingMessageIds {

inline constexpr char kWindowClass[] = "Tallyrun.frmHoldingMessage";

inline constexpr int kTxtMessage = 101;

}  // namespace tallyrun::frmHoldingMessageIds
