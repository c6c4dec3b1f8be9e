#include "transfer/FtpTransfer.h"

#include "core/files/modFileIO.h"
#include "transfer/FtpScript.h"
#include "transfer/modShellAndWait.h"

namespace tallyrun {

std::string RunFtpScript(const std::string& folder, const std::string& script) {
  const std::string batch = folder + "ftp2KTX.bat";
  WriteWholeFile(folder + "ftp2KTX.txt", script);
  WriteWholeFile(batch, BatchText(folder));
  // What an earlier run printed must not pass for this one's output.
  DeleteMatching(folder + "out.txt");
  // Quoted, so that a working folder with blanks is one word of the command line.
  ShellAndWait("\"" + batch + "\"", 0);
  return ReadWholeFile(folder + "out.txt");
}

void RemoveFtpFiles(const std::string& folder) {
  DeleteMatching(folder + "ftp2KTX.*");
  DeleteMatching(folder + "out.txt");
}

}  // namespace tallyrun
