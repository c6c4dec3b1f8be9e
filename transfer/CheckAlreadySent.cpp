#include "transfer/CheckAlreadySent.h"

#include <exception>

#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/files/modFileIO.h"
#include "transfer/FtpTransfer.h"

namespace tallyrun {
namespace {

bool FindAlreadySent(const EntrySend& send) {
  const std::string path = send.workingFolder + send.fileName;
  const std::string output =
      FtpTransfer(send.workingFolder)
          .RunFtpScript({"mkdir " + send.day, "cd " + send.day, "get " + send.fileName});
  if (ToLower(output).find("the system cannot find the file specified") != std::string::npos) {
    RemoveFtpFiles(send.workingFolder);
    return false;
  }
  // The download has just put the server's copy in the local file's place. Of an empty one the
  // transfer's files stay: the upload writes them anew.
  if (FileLength(path) <= 0) return false;
  RemoveFtpFiles(send.workingFolder);
  send.busy.ShowPointer(PointerShape::Normal);
  Tell("File already sent. Your sent file will be shown now.", kApplicationTitle,
       MessageIcon::Critical);
  ThePlatform().StartProcess("notepad \"" + path + "\"", WindowMode::NormalFocus);
  return true;
}

}  // namespace

bool CheckAlreadySent(const EntrySend& send) {
  try {
    return FindAlreadySent(send);
  } catch (const std::exception& error) {
    send.busy.End();
    ShowError(error);
    return true;
  }
}

}  // namespace tallyrun
