#include "core/files/modFileIO.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <utility>

#include "core/ErrorTrap.h"
#include "core/Platform.h"
#include "core/RuntimeError.h"
#include "core/files/FileSystem.h"
#include "core/text/Conversion.h"
#include "core/text/Wildcard.h"

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

  void Write(std::string_view text) { file_->Write(text); }
  void Flush() { file_->Flush(); }

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
  temporary.Flush();
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

void TellLoadFailure(const std::string& title, const std::string& path,
                     const std::exception& error) {
  Tell("Tried to read file: " + path + "\r\nError Description: " + DescriptionOf(error), title,
       MessageIcon::Critical);
}

}  // namespace tallyrun
