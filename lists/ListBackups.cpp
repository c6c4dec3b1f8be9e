#include "lists/ListBackups.h"

#include <string_view>

#include "core/entry/Settings.h"
#include "core/files/modFileIO.h"
#include "core/text/Conversion.h"
#include "lists/ListKind.h"

namespace tallyrun {
namespace {

// What follows the stamp in a backup's file name.
std::string EndingOf(const std::string& kind) { return "_" + ListFileNameOf(kind); }

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

std::vector<std::string> ListBackups(const std::string& kind) {
  std::vector<std::string> names = ListFiles(Settings.backupLocation + "*" + ListFileNameOf(kind));
  if (names.front().empty()) return {};
  const std::string ending = EndingOf(kind);
  for (std::string& name : names) name = EntryOf(name, ending);
  return names;
}

bool IsMainFileEntry(const std::string& kind, const std::string& entry) {
  return IsSameName(entry, ListFileNameOf(kind));
}

std::string BackupEntryPath(const std::string& kind, const std::string& entry) {
  const bool isMainFile = IsMainFileEntry(kind, entry);
  return Settings.backupLocation + (isMainFile ? entry : entry + EndingOf(kind));
}

void TakeBackup(const std::string& kind) {
  const std::string target = BackupPathAt(kind, ThePlatform().Now());
  if (!CopyTextFile(ListFilePathOf(kind), target)) return;
  Tell("Backup taken successfully.", "Backup succeeded.", MessageIcon::Information);
}

void LoadBackup(FlexGrid& grid, const std::string& kind, const std::string& entry) {
  LoadFileIntoGrid(BackupEntryPath(kind, entry), grid);
}

bool DeleteBackup(const std::string& kind, const std::string& entry) {
  if (IsMainFileEntry(kind, entry)) {
    Tell("This is currently the main file. You cannot delete this.", "Deletion Failed",
         MessageIcon::Critical);
    return false;
  }
  if (!Ask("Are you sure to delete the selected backup?", "Delete Confirmation",
           MessageIcon::Critical)) {
    return false;
  }
  DeleteFileAt(BackupEntryPath(kind, entry));
  Tell("Backup deleted successfully.", "Delete Succeeded", MessageIcon::Information);
  return true;
}

}  // namespace tallyrun
