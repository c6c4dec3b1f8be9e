#include "lists/ListExchange.h"

#include <optional>

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

// Both give back what the client printed.
std::string Upload(const FlexGrid& grid, const std::string& folder, const std::string& file) {
  const FtpTransfer transfer(folder);
  SaveGridToFile(grid, file);
  return transfer.RunFtpScript(SendBoListScript(Settings.brokerId, ThePlatform().Now()));
}

// Nothing when the list could not be kept: it is not put at risk then.
std::optional<std::string> Download(const std::string& folder, const std::string& list,
                                    const std::string& backup) {
  const FtpTransfer transfer(folder);
  if (FileExists(list) && !CopyTextFile(list, backup)) return std::nullopt;
  return transfer.RunFtpScript(ReceiveIsinListScript());
}

void RestoreList(const std::string& list, const std::string& backup) {
  WriteWholeFile(list, ReadWholeFile(backup));
  DeleteFileAt(backup);
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
  // Kept, because the clerk can save other settings while the transfer is waited for.
  const std::string folder = Settings.backupLocation;
  const std::string file = folder + UploadStem(Settings.brokerId) + ".txt";
  if (HasTransferCompleted(Upload(grid, folder, file))) {
    busy.TellOutcome("List of BOs sent to KTX successfully.", "Send succeeded",
                     MessageIcon::Information);
  } else {
    busy.TellOutcome("List of BOs not sent to KTX.", "Send failed", MessageIcon::Critical);
  }
  RemoveFtpFiles(folder);
  DeleteFileAt(file);
}

void ReceiveIsinList(BusyWindow& window, const std::function<void(const std::string&)>& showList) {
  BusyScope busy(window);
  busy.Show("Receiving list of ISINs from KTX...Please wait...");
  const std::string folder = Settings.backupLocation;
  const std::string list = ListFilePathOf(kIsinKind);
  const std::string backup = BackupPathAt(kIsinKind, ThePlatform().Now());
  const std::optional<std::string> output = Download(folder, list, backup);
  if (!output) return;
  if (HasTransferCompleted(*output)) {
    showList(list);
    busy.TellOutcome("List of ISINs received from KTX successfully.", "Recieve succeeded",
                     MessageIcon::Information);
  } else {
    busy.TellOutcome("List of ISINs not received from KTX.", "Receive failed",
                     MessageIcon::Critical);
    RestoreList(list, backup);
  }
  RemoveFtpFiles(folder);
}

}  // namespace tallyrun
