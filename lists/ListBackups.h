// The dated copies of a master list that lie beside it in the working folder. A copy is named
// after the moment it was taken, and is shown by that stamp alone; the list file itself stands
// among the stamps under its own name.
#pragma once

#include <string>
#include <vector>

#include "core/Platform.h"
#include "core/grid/FlexGrid.h"

namespace tallyrun {

// The path of a copy of the kind's list taken at `moment`, "...\2010-05-06_14-30-05_BO.txt".
std::string BackupPathAt(const std::string& kind, const ClockTime& moment);

// The entries of the kind's copies and of its list file, in the order of the folder's listing;
// none when nothing is there.
std::vector<std::string> ListBackups(const std::string& kind);

// True for the entry of the list file itself, which can be loaded but not deleted.
bool IsMainFileEntry(const std::string& kind, const std::string& entry);
// The path of the file that an entry stands for.
std::string BackupEntryPath(const std::string& kind, const std::string& entry);

// Copies the list file as it lies on the disk to a new backup and says so, or shows the error.
void TakeBackup(const std::string& kind);

// Loads the entry's file into the grid, which keeps the kind's layout.
void LoadBackup(FlexGrid& grid, const std::string& kind, const std::string& entry);

// Asks and deletes the entry's file; the list file itself is refused. True when it was deleted.
// Raises FileNotFound when the file has gone meanwhile.
bool DeleteBackup(const std::string& kind, const std::string& entry);

}  // namespace tallyrun
