#include "core/modFileIO.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <utility>

#include "core/Conversion.h"
#include "core/ErrorTrap.h"
#include "core/FileSystem.h"
#include "core/FlexGrid.h"
#include "core/GridRows.h"
#include "core/Platform.h"
#include "core/RuntimeError.h"
#include "core/Wildcard.h"

namespace tallyrun {
namespace {

// The folder that a path names its file in, with the trailing backslash; empty when it names none.
std::string FolderOf(const std::string& path) {
  return path.substr(0, path.find_last_of("\\/:") + 1);
}

std::string NameIn(const std::string& path) { return path.substr(path.find_last_of("\\/:") + 1); }

std::optional<FileSystem::Facts> FactsIfAny(const std::string& path) {
  try {
    return FileSystem::FactsOf(path);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

// A new file of its own name beside the one it is to replace; removed unless it has become that.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target) : target_(target) {
    // Names left behind by a crash are passed over.
    for (unsigned number = 0; number < kAttempts; ++number) {
      std::array<char, 32> name;
      std::snprintf(name.data(), name.size(), "~%x-%x.tmp", FileSystem::ProcessNumber(), number);
      path_ = FolderOf(target) + name.data();
      file_ = FileSystem::File::CreateNew(path_);
      if (file_) return;
    }
    throw RuntimeError(ErrorKind::PathFileAccess);
  }

  ~TemporaryFile() {
    file_.reset();
    if (path_.empty()) return;
    try {
      FileSystem::Remove(path_);
    } catch (const RuntimeError&) {
      // The error that brought us here is the one to tell.
    }
  }

  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void Write(std::string_view text) {
    file_->Write(text);
    file_->Flush();
  }

  void TakeThePlaceOfTarget() {
    file_.reset();
    FileSystem::Replace(path_, target_);
    path_.clear();
  }

 private:
  static constexpr unsigned kAttempts = 1000;

  std::string target_;
  std::string path_;
  std::optional<FileSystem::File> file_;
};

// Appends `text` without the line ends in it.
void AppendWithoutLineEnds(std::string& out, std::string_view text) {
  for (std::size_t end = text.find(kLineEnd); end != std::string_view::npos;
       end = text.find(kLineEnd)) {
    out += text.substr(0, end);
    text.remove_prefix(end + kLineEnd.size());
  }
  out += text;
}

void FillRow(FlexGrid& grid, int row, std::string_view line) {
  CellScratch scratch;
  int col = 0;
  for (const std::string_view piece : Split(line, kCellSeparator)) {
    const std::string_view text = Trim(piece);
    // Many cells repeat the one above, whose text need not be looked for in the grid's pool.
    if (row > 0 && col < grid.Cols() && grid.View(row - 1, col, scratch) == text) {
      grid.SetCell(row, col, grid.Cell(row - 1, col));
    } else {
      grid.SetText(row, col, text);
    }
    FitColumnWidth(grid, row, col);
    ++col;
  }
}

void FillFromFile(FlexGrid& grid, const std::string& path) {
  ClearEntryGrid(grid);
  const std::string text = ReadWholeFile(path);
  const std::vector<std::string_view> lines = Split(text, kLineEnd);
  grid.SetRows(static_cast<int>(lines.size()));
  int row = 0;
  for (const std::string_view line : lines) FillRow(grid, row++, line);
}

}  // namespace

std::string ReadWholeFile(const std::string& path) {
  FileSystem::File file = FileSystem::File::OpenToRead(path);
  // The length is where to begin; what counts is how much comes, should the file be growing.
  std::string text(static_cast<std::size_t>(file.Length()) + 1, '\0');
  std::size_t length = 0;
  while (const std::size_t count = file.Read(text.data() + length, text.size() - length)) {
    length += count;
    if (length == text.size()) text.resize(text.size() * 2);
  }
  text.resize(length);
  return text;
}

void WriteWholeFile(const std::string& path, std::string_view text) {
  const auto target = FactsIfAny(path);
  if (target && (target->isReadOnly || target->isFolder)) {
    throw RuntimeError(ErrorKind::PermissionDenied);
  }
  TemporaryFile temporary(path);
  temporary.Write(text);
  temporary.TakeThePlaceOfTarget();
}

bool CopyTextFile(const std::string& source, const std::string& target) {
  return RunTrapped([&] { WriteWholeFile(target, ReadWholeFile(source)); });
}

bool FolderExists(const std::string& path) {
  if (path.empty()) return false;
  const auto facts = FactsIfAny(path);
  return facts && facts->isFolder;
}

bool FileExists(const std::string& path) {
  const auto facts = FactsIfAny(path);
  return facts && !facts->isFolder;
}

std::int64_t FileLength(const std::string& path) {
  const FileSystem::Facts facts = FileSystem::FactsOf(path);
  if (facts.isFolder) throw RuntimeError(ErrorKind::FileNotFound);
  return facts.length;
}

void CreateFolder(const std::string& path) {
  try {
    FileSystem::MakeFolder(path);
  } catch (const RuntimeError& error) {
    // A folder that may not be made has always been told in other words than a file.
    if (error.Kind() == ErrorKind::PermissionDenied) throw RuntimeError(ErrorKind::PathFileAccess);
    throw;
  }
}

void DeleteFileAt(const std::string& path) {
  if (FileSystem::FactsOf(path).isReadOnly) throw RuntimeError(ErrorKind::PermissionDenied);
  FileSystem::Remove(path);
}

void DeleteMatching(const std::string& pattern) {
  for (const std::string& name : ListFiles(pattern)) {
    if (!name.empty()) DeleteFileAt(FolderOf(pattern) + name);
  }
}

std::vector<std::string> ListFiles(const std::string& pattern) {
  const std::string wanted = NameIn(pattern);
  std::vector<std::pair<std::string, std::string>> matches;  // folded name, name
  for (std::string& name : FileSystem::NamesIn(FolderOf(pattern), wanted)) {
    // The system also answers with files whose hidden short name matches.
    if (MatchesWildcard(name, wanted)) matches.emplace_back(ToLower(name), std::move(name));
  }
  std::sort(matches.begin(), matches.end());
  std::vector<std::string> names;
  names.reserve(matches.size());
  for (auto& match : matches) names.push_back(std::move(match.second));
  if (names.empty()) names.emplace_back();
  return names;
}

std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  if (text.empty()) return pieces;
  pieces.reserve(16);  // a line of any of our files has no more
  for (std::size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator)) {
    pieces.push_back(text.substr(0, end));
    text.remove_prefix(end + separator.size());
  }
  pieces.push_back(text);
  return pieces;
}

std::string GridToText(const FlexGrid& grid) {
  std::string text;
  CellScratch scratch;
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int col = 0; col < grid.Cols(); ++col) {
      if (col > 0) text += kCellSeparator;
      AppendWithoutLineEnds(text, grid.View(row, col, scratch));
    }
    text += kLineEnd;
  }
  text.pop_back();
  return text;
}

void SaveGridToFile(const FlexGrid& grid, const std::string& path) {
  WriteWholeFile(path, GridToText(grid));
}

bool LoadFileIntoGrid(const std::string& path, FlexGrid& grid) {
  try {
    FillFromFile(grid, path);
    return true;
  } catch (const std::exception& error) {
    TellLoadFailure("Error loading file into list.", path, error);
    return false;
  }
}

void TellLoadFailure(const std::string& title, const std::string& path,
                     const std::exception& error) {
  Tell("Tried to read file: " + path + "\r\nError Description: " + DescriptionOf(error), title,
       MessageIcon::Critical);
}

}  // namespace tallyrun
