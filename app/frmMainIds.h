// The ids of the main window's controls, the same in every build, so that a test or a tool can
// find them. Plain numbers: nothing else is needed to read this.
#pragma once

namespace tallyrun::frmMainIds {

inline constexpr char kWindowClass[] = "Tallyrun.frmMain";

inline constexpr int kOptPayIn = 101;
inline constexpr int kOptPayOut = 102;
inline constexpr int kDtpPayInOrPayOut = 103;
inline constexpr int kBtnLoadFromBTFile = 104;
inline constexpr int kBtnReload = 105;
inline constexpr int kBtnSave = 106;
inline constexpr int kLblSearch = 107;
inline constexpr int kCmbSearch = 108;
inline constexpr int kTxtSearch = 109;
inline constexpr int kBtnSearch = 110;
inline constexpr int kChkFreeEntry = 111;
inline constexpr int kTxtEditor = 112;
inline constexpr int kDtpDate = 113;
inline constexpr int kFlxEntries = 114;
inline constexpr int kBtnAutoFields = 115;
inline constexpr int kBtnSummarize = 116;
inline constexpr int kBtnCheck = 117;
inline constexpr int kBtnReport = 118;
inline constexpr int kBtnSend = 119;
inline constexpr int kBtnList = 120;
inline constexpr int kBtnSettings = 121;
inline constexpr int kBtnExit = 122;

}  // namespace tallyrun::frmMainIds
