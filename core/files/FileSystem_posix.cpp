#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "core/RuntimeError.h"
#include "core/files/FileSystem.h"

namespace tallyrun::FileSystem {
namespace {

constexpr std::intptr_t kClosed = -1;

std::string Native(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

ErrorKind KindOf(int code) {
  switch (code) {
    case ENOENT:
      return ErrorKind::FileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
      return ErrorKind::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return ErrorKind::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
      return ErrorKind::DiskFull;
    case ENOMEM:
      return ErrorKind::OutOfMemory;
    case EIO:
      return ErrorKind::DeviceIo;
    default:
      return ErrorKind::PathFileAccess;
  }
}

// A missing folder on the way to `path` is another error than a missing file.
[[noreturn]] void Raise(int code, const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (code == ENOENT && slash != std::string::npos &&
      access(path.substr(0, slash + 1).c_str(), F_OK) != 0) {
    throw RuntimeError(ErrorKind::PathNotFound);
  }
  throw RuntimeError(KindOf(code));
}

void Require(int result, const std::string& path) {
  if (result != 0) Raise(errno, path);
}

int HandleOf(std::intptr_t handle) { return static_cast<int>(handle); }

}  // namespace

File File::OpenToRead(const std::string& path) {
  const std::string native = Native(path);
  const int handle = open(native.c_str(), O_RDONLY | O_CLOEXEC);
  if (handle < 0) Raise(errno, native);
  return File(handle);
}

std::optional<File> File::CreateNew(const std::string& path) {
  const std::string native = Native(path);
  const int handle = open(native.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (handle < 0) {
    if (errno == EEXIST) return std::nullopt;
    Raise(errno, native);
  }
  return File(handle);
}

File::File(File&& other) noexcept : handle_(std::exchange(other.handle_, kClosed)) {}

File::~File() {
  if (handle_ != kClosed) close(HandleOf(handle_));
}

// What changes is the file, so that these are no const members.
// NOLINTBEGIN(readability-make-member-function-const)
std::size_t File::Read(char* buffer, std::size_t capacity) {
  const ssize_t count = read(HandleOf(handle_), buffer, capacity);
  if (count < 0) throw RuntimeError(KindOf(errno));
  return static_cast<std::size_t>(count);
}

void File::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(HandleOf(handle_), bytes.data(), bytes.size());
    if (count < 0) throw RuntimeError(KindOf(errno));
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void File::Flush() { Require(fsync(HandleOf(handle_)), ""); }

// NOLINTEND(readability-make-member-function-const)

std::int64_t File::Length() const {
  struct stat facts;
  Require(fstat(HandleOf(handle_), &facts), "");
  return facts.st_size;
}

Facts FactsOf(const std::string& path) {
  const std::string native = Native(path);
  struct stat facts;
  Require(stat(native.c_str(), &facts), native);
  return {S_ISDIR(facts.st_mode), (facts.st_mode & 0222) == 0, facts.st_size};
}

void Replace(const std::string& source, const std::string& target) {
  Require(rename(Native(source).c_str(), Native(target).c_str()), Native(target));
}

void Remove(const std::string& path) { Require(unlink(Native(path).c_str()), Native(path)); }

void MakeFolder(const std::string& path) {
  Require(mkdir(Native(path).c_str(), 0777), Native(path));
}

std::vector<std::string> NamesIn(const std::string& folder, const std::string&) {
  std::vector<std::string> names;
  const std::string native = folder.empty() ? "./" : Native(folder);
  const std::unique_ptr<DIR, int (*)(DIR*)> search(opendir(native.c_str()), &closedir);
  if (search == nullptr) {
    if (errno == ENOENT || errno == ENOTDIR) return names;
    Raise(errno, native);
  }
  // The search is this call's own.
  while (const dirent* found = readdir(search.get())) {  // NOLINT(concurrency-mt-unsafe)
    struct stat facts;
    if (stat((native + found->d_name).c_str(), &facts) == 0 && !S_ISDIR(facts.st_mode)) {
      names.emplace_back(found->d_name);
    }
  }
  return names;
}

std::uint32_t ProcessNumber() { return static_cast<std::uint32_t>(getpid()); }

}  // namespace tallyrun::FileSystem
