// Whole files in and out, and the little that the program asks a folder. Paths and contents are
// single-byte text in the system code page; nothing is transcoded, and any byte survives.
// Every routine raises a RuntimeError with the description that fits the system's error.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "core/text/Split.h"

namespace tallyrun {

class FlexGrid;

// All bytes of the file. Raises FileNotFound when it is missing.
std::string ReadWholeFile(const std::string& path);

// Creates or replaces the file with `text` in one step: when anything fails, the file is as it
// was and nothing is left beside it. A read-only file raises PermissionDenied.
void WriteWholeFile(const std::string& path, std::string_view text);

// Reads `source` whole and writes it over `target`. Runs under a trap of its own: an error is
// shown, and the result is then false.
bool CopyTextFile(const std::string& source, const std::string& target);

// False for an empty path, for what is no folder and for any error.
bool FolderExists(const std::string& path);
bool FileExists(const std::string& path);
// The length in bytes. Raises FileNotFound.
std::int64_t FileLength(const std::string& path);
void CreateFolder(const std::string& path);
// Raises FileNotFound when the file is missing.
void DeleteFileAt(const std::string& path);
// Deletes every file that matches; none is no error.
void DeleteMatching(const std::string& pattern);

// The names (without folder) of the files that match a wildcard pattern, in byte order of the
// names folded to one case; one empty name when nothing matches.
std::vector<std::string> ListFiles(const std::string& pattern);

// Writes the grid as tilde table text: a line per row, captions first, cells joined by "~", lines
// by CR LF, a lone CR at the end.
void SaveGridToFile(const FlexGrid& grid, const std::string& path);

// Fills the grid from tilde table text: one row per line, the first line being the captions;
// columns widen to fit and never narrow. Runs under a trap of its own that shows the path and
// the error; the grid is then left as far as it was filled, and the result is false.
bool LoadFileIntoGrid(const std::string& path, FlexGrid& grid);

// What a loader's trap shows: the path that it tried and the error.
void TellLoadFailure(const std::string& title, const std::string& path,
                     const std::exception& error);

}  // namespace tallyrun
