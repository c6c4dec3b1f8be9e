#include "lists/ListExchange.h"

#include "core/BusyScope.h"
#include "core/entry/Settings.h"
#include "core/files/modFileIO.h"
#include "core/text/Conversion.h"
#include "lists/ListBackups.h"
#include "lists/ListKind.h"
#include "lists/ListRows.h"
#include "transfer/FtpScript.h"
#include "transfer/FtpTransfer.h"

namespace tallyrun {
namespace {

// The upload without its ending; also the server's folder of earlier ones.
std::string UploadStem(const std::string& brokerId) { return "BO_" + brokerId; }

void SendShownRows(const FlexGrid& grid, BusyScope& busy) {
  // Kept, because the clerk can save other settings while the transfer is waited for.
  const std::string folder = Settings.backupLocation;
  const std::string upload = folder + UploadStem(Settings.brokerId) + ".txt";
  SaveGridToFile(grid, upload);
  const std::string output =
      RunFtpScript(folder, SendBoListScript(Settings.brokerId, ThePlatform().Now()));
  if (HasTransferCompleted(output)) {
    busy.TellOutcome("List of BOs sent to KTX successfully.", "Send succeeded",
                     MessageIcon::Information);
  } else {
    busy.TellOutcome("List of BOs not sent to KTX.", "Send failed", MessageIcon::Critical);
  }
  RemoveFtpFiles(folder);
  DeleteFileAt(upload);
}

void RestoreList(const std::string& list, const std::string& backup) {
  WriteWholeFile(list, ReadWholeFile(backup));
  DeleteFileAt(backup);
}

void ReceiveOverList(FlexGrid& grid, BusyScope& busy) {
  const std::string folder = Settings.backupLocation;
  const std::string list = ListFilePathOf(kIsinKind);
  const std::string backup = BackupPathAt(kIsinKind, ThePlatform().Now());
  // A list that cannot be kept is not put at risk.
  if (FileExists(list) && !CopyTextFile(list, backup)) return;
  const std::string output = RunFtpScript(folder, ReceiveIsinListScript());
  if (HasTransferCompleted(output)) {
    const bool isShown = CurrentListKind == kIsinKind && list == ListFilePathOf(kIsinKind);
    if (isShown) LoadFileIntoGrid(list, grid);
    busy.TellOutcome("List of ISINs received from KTX successfully.", "Recieve succeeded",
                     MessageIcon::Information);
  } else {
    busy.TellOutcome("List of ISINs not received from KTX.", "Receive failed",
                     MessageIcon::Critical);
    RestoreList(list, backup);
  }
  RemoveFtpFiles(folder);
}

}  // namespace

std::string SendBoListScript(const std::string& brokerId, const ClockTime& moment) {
  const std::string stem = UploadStem(brokerId);
  const std::string archived = stem + "/" + stem + "_" + FormatDdMmmYy(DateOf(moment)) + "_" +
                               FormatHhMmSsAmPm(moment) + ".txt";
  return FtpScript(
      {"mkdir " + stem, "rename " + stem + ".txt " + archived, "put " + stem + ".txt"});
}

std::string ReceiveIsinListScript() { return FtpScript({"get " + ListFileNameOf(kIsinKind)}); }

void SendBoList(FlexGrid& grid, BusyWindow& window) {
  if (HasBlankRow(grid)) return;
  BusyScope busy(window);
  busy.Show("Sending list of BOs to KTX...Please wait...");
  SendShownRows(grid, busy);
}

void ReceiveIsinList(FlexGrid& grid, BusyWindow& window) {
  BusyScope busy(window);
  busy.Show("Receiving list of ISINs from KTX...Please wait...");
  ReceiveOverList(grid, busy);
}

}  // namespace tallyrun
