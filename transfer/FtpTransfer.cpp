#include "transfer/FtpTransfer.h"

#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "transfer/FtpScript.h"
#include "transfer/modShellAndWait.h"

namespace tallyrun {
namespace {

bool transferRuns = false;

}  // namespace

FtpTransfer::FtpTransfer(const std::string& folder) : folder_(folder) {
  if (transferRuns) throw RuntimeError(ErrorKind::PermissionDenied);
  transferRuns = true;
}

FtpTransfer::~FtpTransfer() { transferRuns = false; }

std::string FtpTransfer::RunFtpScript(const std::string& script) const {
  const std::string batch = folder_ + "ftp2KTX.bat";
  // What an earlier run printed must not pass for this one's output.
  DeleteMatching(folder_ + "out.txt");
  WriteWholeFile(folder_ + "ftp2KTX.txt", script);
  WriteWholeFile(batch, BatchText(folder_));
  // Quoted, so that a working folder with blanks is one word of the command line.
  ShellAndWait("\"" + batch + "\"", 0);
  return ReadWholeFile(folder_ + "out.txt");
}

void RemoveFtpFiles(const std::string& folder) {
  DeleteMatching(folder + "ftp2KTX.*");
  DeleteMatching(folder + "out.txt");
}

}  // namespace tallyrun
