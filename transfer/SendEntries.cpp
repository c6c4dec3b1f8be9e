#include "transfer/SendEntries.h"

#include <chrono>
#include <exception>

#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/entry/EntryRow.h"
#include "core/entry/Settings.h"
#include "core/files/modFileIO.h"
#include "transfer/FtpScript.h"
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
std::string ArchivePath(const EntrySend& send, const std::string& sentFolder) {
  ClockTime moment = ThePlatform().Now();
  std::string path;
  do {
    path = sentFolder + "\\" + send.stem + "_" + FormatDdMmmYy(DateOf(moment)) + "_" +
           FormatHhMmSsAmPm(moment) + ".txt";
    moment = OneSecondLater(moment);
  } while (FileExists(path));
  return path;
}

void Archive(const EntrySend& send) {
  const std::string sentFolder = send.workingFolder + "Sent";
  if (!FolderExists(sentFolder)) CreateFolder(sentFolder);
  WriteWholeFile(ArchivePath(send, sentFolder), send.sheet);
}

void ShowSentFile(const EntrySend& send) {
  send.busy.ShowPointer(PointerShape::Normal);
  Tell("File already sent. Your sent file will be shown now.", kApplicationTitle,
       MessageIcon::Critical);
  ThePlatform().StartProcess("notepad \"" + send.workingFolder + send.fileName + "\"",
                             WindowMode::NormalFocus);
}

// The local file stands for the server's copy, which the download has just put in its place.
bool FindAlreadySent(const EntrySend& send) {
  const std::string output = ToLower(
      FtpTransfer(send.workingFolder).RunFtpScript(AlreadySentScript(send.day, send.fileName)));
  if (output.find("the system cannot find the file specified") != std::string::npos) {
    RemoveFtpFiles(send.workingFolder);
    return false;
  }
  // Of an empty file the transfer's files stay: the upload writes them anew.
  if (FileLength(send.workingFolder + send.fileName) <= 0) return false;
  RemoveFtpFiles(send.workingFolder);
  ShowSentFile(send);
  return true;
}

}  // namespace

EntrySend::EntrySend(const FlexGrid& entries, const Date& entryDay, BusyScope& busyScope)
    : busy(busyScope),
      day(FormatDdMmmYyyy(entryDay)),
      stem(EntryFileStem(entryDay)),
      fileName(EntryFileName(entryDay)),
      workingFolder(Settings.backupLocation),
      sheet(GridToText(entries)) {}

bool ConfirmSend(const Date& entryDay) {
  const std::string day = FormatDdMmmYyyy(entryDay);
  return Ask("Are you sure to send the entered records to KTX as " + EntryMode.name + " file of " +
                 day + " ?",
             EntryMode.name + " of " + day + " Send Confirmation", MessageIcon::Question);
}

bool CheckAlreadySent(const EntrySend& send) {
  try {
    return FindAlreadySent(send);
  } catch (const std::exception& error) {
    send.busy.End();
    ShowError(error);
    return true;
  }
}

void WriteEntryFile(const EntrySend& send) {
  WriteWholeFile(send.workingFolder + send.fileName, send.sheet);
}

void UploadEntryFile(const EntrySend& send) {
  const bool ended = RunTrapped([&send] {
    const std::string output =
        FtpTransfer(send.workingFolder).RunFtpScript(SendScript(send.day, send.fileName));
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
