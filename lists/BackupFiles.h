// The files of a master list's backups: dated copies that lie beside it in the working folder. A
// copy is named after the moment it was taken, and is shown by that stamp alone; the list file
// itself stands among the stamps under its own name.
#pragma once

#include <string>
#include <vector>

#include "core/Platform.h"

namespace tallyrun {

// The path of a copy of the kind's list taken at `moment`, "...\2010-05-06_14-30-05_BO.txt".
std::string BackupPathAt(const std::string& kind, const ClockTime& moment);

// The entries of the kind's copies and of its list file, in the order of the folder's listing;
// none when nothing is there.
std::vector<std::string> BackupEntries(const std::string& kind);

// True for the entry of the list file itself, which can be loaded but not deleted.
bool IsMainFileEntry(const std::string& kind, const std::string& entry);
// The path of the file that an entry stands for.
std::string BackupEntryPath(const std::string& kind, const std::string& entry);

}  // namespace tallyrun
