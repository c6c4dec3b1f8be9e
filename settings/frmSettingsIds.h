// The ids of the settings dialog's controls, the same in every build, so that a test or a tool can
// find them. Plain numbers: nothing else is needed to read this.
#pragma once

namespace tallyrun::frmSettingsIds {

inline constexpr char kWindowClass[] = "Tallyrun.frmSettings";

inline constexpr int kLblBrokerID = 101;
inline constexpr int kTxtBrokerID = 102;
inline constexpr int kLblClearingBOID = 103;
inline constexpr int kTxtClearingBOID = 104;
inline constexpr int kLblDefaultBOIDFormat = 105;
inline constexpr int kTxtDefaultBOIDFormat = 106;
inline constexpr int kLblBackupPath = 107;
inline constexpr int kTxtBackupPath = 108;
inline constexpr int kBtnSetBackupLocation = 109;
inline constexpr int kBtnSave = 110;

}  // namespace tallyrun::frmSettingsIds
