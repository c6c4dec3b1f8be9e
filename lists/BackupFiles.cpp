#include "lists/BackupFiles.h"

#include <string_view>

#include "core/entry/Settings.h"
#include "core/files/modFileIO.h"
#include "core/text/Conversion.h"
#include "lists/ListKind.h"

namespace tallyrun {
namespace {

// What follows the stamp in a backup's file name.
std::string EndingOf(const std::string& kind) { return "_" + ListFileName(kind); }

// Windows finds a file in any letter case, so an entry is one however its file was named.
bool IsSameName(std::string_view a, std::string_view b) { return ToLower(a) == ToLower(b); }

std::string EntryOf(const std::string& fileName, const std::string& ending) {
  if (fileName.size() < ending.size()) return fileName;
  const std::size_t stampSize = fileName.size() - ending.size();
  const bool isBackup = IsSameName(std::string_view(fileName).substr(stampSize), ending);
  return isBackup ? fileName.substr(0, stampSize) : fileName;
}

}  // namespace

std::string BackupPathAt(const std::string& kind, const ClockTime& moment) {
  return Settings.backupLocation + FormatYyyyMmDd(DateOf(moment)) + "_" + FormatHhMmSs(moment) +
         EndingOf(kind);
}

std::vector<std::string> BackupEntries(const std::string& kind) {
  std::vector<std::string> names = ListFiles(Settings.backupLocation + "*" + ListFileName(kind));
  if (names.front().empty()) return {};
  for (std::string& name : names) name = EntryOf(name, EndingOf(kind));
  return names;
}

bool IsMainFileEntry(const std::string& kind, const std::string& entry) {
  return IsSameName(entry, ListFileName(kind));
}

std::string BackupEntryPath(const std::string& kind, const std::string& entry) {
  return Settings.backupLocation + entry + (IsMainFileEntry(kind, entry) ? "" : EndingOf(kind));
}

}  // namespace tallyrun
