// The ids of the list window's controls, the same in every build, so that a test or a tool can
// find them. Plain numbers: nothing else is needed to read this.
#pragma once

namespace tallyrun::frmListIds {

inline constexpr char kWindowClass[] = "Tallyrun.frmList";

inline constexpr int kCmbListOf = 201;
inline constexpr int kLblSelect = 202;
inline constexpr int kTxtItem = 203;
inline constexpr int kTxtEditor = 204;
inline constexpr int kFlxList = 205;
inline constexpr int kBtnAdd = 206;
inline constexpr int kBtnRemove = 207;
inline constexpr int kBtnReload = 208;
inline constexpr int kBtnSave = 209;
inline constexpr int kBtnSaveAsBackup = 210;
inline constexpr int kBtnLoadBackup = 211;
inline constexpr int kBtnUpdateList = 212;
inline constexpr int kBtnClose = 213;
inline constexpr int kFrameBackup = 214;
inline constexpr int kLblTitle_Backup = 215;
inline constexpr int kLstBackups = 216;
inline constexpr int kBtnLoad_Backup = 217;
inline constexpr int kBtnCancel_Backup = 218;
inline constexpr int kBtnDelete_Backup = 219;

}  // namespace tallyrun::frmListIds
