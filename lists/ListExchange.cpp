#include "lists/ListExchange.h"

#include <exception>

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

void SendShownRows(const FlexGrid& grid, BusyWindow& window, const std::string& savedCaption) {
  // Kept, because the clerk can save other settings while the transfer is waited for.
  const std::string folder = Settings.backupLocation;
  const std::string upload = folder + UploadStem(Settings.brokerId) + ".txt";
  SaveGridToFile(grid, upload);
  const std::string output =
      RunFtpScript(folder, SendBoListScript(Settings.brokerId, ThePlatform().Now()));
  if (HasTransferCompleted(output)) {
    TellOutcome(window, savedCaption, "List of BOs sent to KTX successfully.", "Send succeeded",
                MessageIcon::Information);
  } else {
    TellOutcome(window, savedCaption, "List of BOs not sent to KTX.", "Send failed",
                MessageIcon::Critical);
  }
  RemoveFtpFiles(folder);
  DeleteFileAt(upload);
}

void RestoreList(const std::string& list, const std::string& backup) {
  WriteWholeFile(list, ReadWholeFile(backup));
  DeleteFileAt(backup);
}

void ReceiveOverList(FlexGrid& grid, BusyWindow& window, const std::string& savedCaption) {
  const std::string folder = Settings.backupLocation;
  const std::string list = ListFilePathOf(kIsinKind);
  const std::string backup = BackupPathAt(kIsinKind, ThePlatform().Now());
  // A list that cannot be kept is not put at risk.
  if (FileExists(list) && !CopyTextFile(list, backup)) return EndBusy(window, savedCaption);
  const std::string output = RunFtpScript(folder, ReceiveIsinListScript());
  if (HasTransferCompleted(output)) {
    const bool isShown = CurrentListKind == kIsinKind && list == ListFilePathOf(kIsinKind);
    if (isShown) LoadFileIntoGrid(list, grid);
    TellOutcome(window, savedCaption, "List of ISINs received from KTX successfully.",
                "Recieve succeeded", MessageIcon::Information);
  } else {
    TellOutcome(window, savedCaption, "List of ISINs not received from KTX.", "Receive failed",
                MessageIcon::Critical);
    RestoreList(list, backup);
  }
  RemoveFtpFiles(folder);
}

// Runs `transfer` under the signs of a busy window, and takes them back when it fails.
template <class Transfer>
void RunBusy(BusyWindow& window, const std::string& progress, Transfer&& transfer) {
  const std::string savedCaption = window.Caption();
  window.SetCaption(progress);
  window.SetPointer(PointerShape::Hourglass);
  try {
    transfer(savedCaption);
  } catch (const std::exception&) {
    EndBusy(window, savedCaption);
    throw;
  }
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
  RunBusy(window, "Sending list of BOs to KTX...Please wait...",
          [&](const std::string& savedCaption) { SendShownRows(grid, window, savedCaption); });
}

void ReceiveIsinList(FlexGrid& grid, BusyWindow& window) {
  RunBusy(window, "Receiving list of ISINs from KTX...Please wait...",
          [&](const std::string& savedCaption) { ReceiveOverList(grid, window, savedCaption); });
}

}  // namespace tallyrun
