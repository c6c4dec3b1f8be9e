#include "transfer/UploadEntryFile.h"

#include <chrono>

#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/files/modFileIO.h"
#include "transfer/FtpTransfer.h"

namespace tallyrun {
namespace {

ClockTime OneSecondLater(ClockTime time) {
  using namespace std::chrono;
  const sys_days midnight{year{time.year} / time.month / time.day};
  const auto later = midnight + hours{time.hour} + minutes{time.minute} + seconds{time.second + 1};
  const auto laterDay = floor<days>(later);
  const year_month_day date{laterDay};
  const hh_mm_ss clock{later - laterDay};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count()),
          time.millisecond};
}

// Where this attempt is archived. The name counts seconds, and a place whose locale has no AM and
// PM writes morning and afternoon alike: an attempt whose name is taken goes under the next free
// second, so that none replaces another.
std::string ArchivePath(const std::string& sentFolder, const std::string& stem) {
  ClockTime moment = ThePlatform().Now();
  std::string path;
  do {
    path = sentFolder + "\\" + stem + "_" + SendStamp(moment) + ".txt";
    moment = OneSecondLater(moment);
  } while (FileExists(path));
  return path;
}

void Archive(const EntrySend& send) {
  const std::string sentFolder = send.workingFolder + "Sent";
  if (!FolderExists(sentFolder)) CreateFolder(sentFolder);
  WriteWholeFile(ArchivePath(sentFolder, send.stem), send.sheet);
}

}  // namespace

void UploadEntryFile(const EntrySend& send) {
  const bool ended = RunTrapped([&send] {
    const std::string output =
        FtpTransfer(send.workingFolder)
            .RunFtpScript({"mkdir " + send.day, "cd " + send.day, "put " + send.fileName});
    if (HasTransferCompleted(output)) {
      send.busy.TellOutcome("Records sent to KTX successfully.", "Send succeeded",
                            MessageIcon::Information);
    } else {
      send.busy.TellOutcome("Records were not sent to KTX.", "Send failed", MessageIcon::Critical);
    }
    RemoveFtpFiles(send.workingFolder);
    Archive(send);
  });
  if (!ended) send.busy.Leave();
}

}  // namespace tallyrun
