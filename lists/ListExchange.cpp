#include "lists/ListExchange.h"

#include <optional>

#include "core/BusyScope.h"
#include "core/Platform.h"
#include "core/entry/Settings.h"
#include "core/files/modFileIO.h"
#include "lists/BackupFiles.h"
#include "lists/ListKind.h"
#include "lists/ListRows.h"
#include "transfer/FtpTransfer.h"

namespace tallyrun {
namespace {

// Both give back what the client printed. The server keeps the broker's earlier upload under the
// moment of the one that replaces it.
std::string Upload(const FlexGrid& grid, const std::string& folder, const std::string& stem) {
  const FtpTransfer transfer(folder);
  SaveGridToFile(grid, folder + stem + ".txt");
  const std::string earlier = stem + "/" + stem + "_" + SendStamp(ThePlatform().Now()) + ".txt";
  return transfer.RunFtpScript(
      {"mkdir " + stem, "rename " + stem + ".txt " + earlier, "put " + stem + ".txt"});
}

// Nothing when the list could not be kept: it is not put at risk then.
std::optional<std::string> Download(const std::string& folder, const std::string& list,
                                    const std::string& backup) {
  const FtpTransfer transfer(folder);
  if (FileExists(list) && !CopyTextFile(list, backup)) return std::nullopt;
  return transfer.RunFtpScript({"get " + ListFileName(kIsinKind)});
}

void RestoreList(const std::string& list, const std::string& backup) {
  WriteWholeFile(list, ReadWholeFile(backup));
  DeleteFileAt(backup);
}

}  // namespace

void SendBoList(FlexGrid& grid, BusyWindow& window) {
  if (HasBlankRow(grid)) return;
  BusyScope busy(window);
  busy.Show("Sending list of BOs to KTX...Please wait...");
  // Kept, because the clerk can save other settings while the transfer is waited for.
  const std::string folder = Settings.backupLocation;
  const std::string stem = "BO_" + Settings.brokerId;
  if (HasTransferCompleted(Upload(grid, folder, stem))) {
    busy.TellOutcome("List of BOs sent to KTX successfully.", "Send succeeded",
                     MessageIcon::Information);
  } else {
    busy.TellOutcome("List of BOs not sent to KTX.", "Send failed", MessageIcon::Critical);
  }
  RemoveFtpFiles(folder);
  DeleteFileAt(folder + stem + ".txt");
}

void ReceiveIsinList(BusyWindow& window, const std::function<void(const std::string&)>& showList) {
  BusyScope busy(window);
  busy.Show("Receiving list of ISINs from KTX...Please wait...");
  const std::string folder = Settings.backupLocation;
  const std::string list = ListFilePath(kIsinKind);
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
