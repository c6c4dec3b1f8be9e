#include "transfer/FtpTransfer.h"

#include "core/Settings.h"
#include "core/modFileIO.h"
#include "transfer/FtpScript.h"
#include "transfer/modShellAndWait.h"

namespace tallyrun {

std::string RunFtpScript(const std::string& script) {
  // Kept, because the clerk can save other settings while the transfer is waited for.
  const std::string folder = Settings.backupLocation;
  const std::string batch = folder + "ftp2KTX.bat";
  WriteWholeFile(folder + "ftp2KTX.txt", script);
  WriteWholeFile(batch, BatchText(folder));
  // Quoted, so that a working folder with blanks is one word of the command line.
  ShellAndWait("\"" + batch + "\"", 0);
  return ReadWholeFile(folder + "out.txt");
}

void RemoveFtpFiles() {
  DeleteMatching(Settings.backupLocation + "ftp2KTX.*");
  DeleteMatching(Settings.backupLocation + "out.txt");
}

void TellOutcome(BusyWindow& window, const std::string& savedCaption, const std::string& outcome,
                 const std::string& title, MessageIcon icon) {
  window.SetCaption(savedCaption + "..." + outcome);
  window.SetPointer(PointerShape::Normal);
  Tell(outcome, title, icon);
  window.SetCaption(savedCaption);
}

}  // namespace tallyrun
