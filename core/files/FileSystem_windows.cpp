#include <windows.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "core/RuntimeError.h"
#include "core/files/FileSystem.h"

namespace tallyrun::FileSystem {
namespace {

constexpr std::intptr_t kClosed = -1;
// Some network drives refuse to take or give more than this in one call.
constexpr std::size_t kChunk = 16u << 20;

// MinGW's headers lack the name.
constexpr DWORD kDiskQuotaExceeded = 1295;

HANDLE HandleOf(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

ErrorKind KindOf(DWORD code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
      return ErrorKind::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY:
      return ErrorKind::PathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_USER_MAPPED_FILE:
      return ErrorKind::PermissionDenied;
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_DISK_FULL:
    case kDiskQuotaExceeded:
      return ErrorKind::DiskFull;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_NO_SYSTEM_RESOURCES:
    case ERROR_COMMITMENT_LIMIT:
      return ErrorKind::OutOfMemory;
    case ERROR_NOT_READY:
    case ERROR_CRC:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_WRITE_FAULT:
    case ERROR_READ_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_NETNAME_DELETED:
    case ERROR_SEM_TIMEOUT:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_IO_DEVICE:
    case ERROR_DEVICE_NOT_CONNECTED:
      return ErrorKind::DeviceIo;
    default:
      return ErrorKind::PathFileAccess;
  }
}

[[noreturn]] void Raise(DWORD code) { throw RuntimeError(KindOf(code)); }

void Require(BOOL done) {
  if (!done) Raise(GetLastError());
}

struct FindCloser {
  using pointer = HANDLE;
  void operator()(HANDLE search) const { FindClose(search); }
};
using UniqueSearch = std::unique_ptr<HANDLE, FindCloser>;

}  // namespace

File File::OpenToRead(const std::string& path) {
  const HANDLE handle = CreateFileA(path.c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (handle == INVALID_HANDLE_VALUE) Raise(GetLastError());
  return File(reinterpret_cast<std::intptr_t>(handle));
}

std::optional<File> File::CreateNew(const std::string& path) {
  const HANDLE handle = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    const DWORD code = GetLastError();
    if (code == ERROR_FILE_EXISTS || code == ERROR_ALREADY_EXISTS) return std::nullopt;
    Raise(code);
  }
  return File(reinterpret_cast<std::intptr_t>(handle));
}

File::File(File&& other) noexcept : handle_(std::exchange(other.handle_, kClosed)) {}

File::~File() {
  if (handle_ != kClosed) CloseHandle(HandleOf(handle_));
}

std::size_t File::Read(char* buffer, std::size_t capacity) {
  DWORD count = 0;
  Require(ReadFile(HandleOf(handle_), buffer, static_cast<DWORD>(std::min(capacity, kChunk)),
                   &count, nullptr));
  return count;
}

void File::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD count = 0;
    Require(WriteFile(HandleOf(handle_), bytes.data(),
                      static_cast<DWORD>(std::min(bytes.size(), kChunk)), &count, nullptr));
    if (count == 0) Raise(ERROR_DISK_FULL);
    bytes.remove_prefix(count);
  }
}

void File::Flush() { Require(FlushFileBuffers(HandleOf(handle_))); }

std::int64_t File::Length() const {
  LARGE_INTEGER length;
  Require(GetFileSizeEx(HandleOf(handle_), &length));
  return length.QuadPart;
}

Facts FactsOf(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  Require(GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data));
  return {(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
          (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0,
          static_cast<std::int64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow};
}

void Replace(const std::string& source, const std::string& target) {
  Require(MoveFileExA(source.c_str(), target.c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

void Remove(const std::string& path) { Require(DeleteFileA(path.c_str())); }

void MakeFolder(const std::string& path) { Require(CreateDirectoryA(path.c_str(), nullptr)); }

std::vector<std::string> NamesIn(const std::string& folder, const std::string& pattern) {
  std::vector<std::string> names;
  WIN32_FIND_DATAA found;
  const HANDLE handle = FindFirstFileA((folder + pattern).c_str(), &found);
  if (handle == INVALID_HANDLE_VALUE) {
    const DWORD code = GetLastError();
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) return names;
    Raise(code);
  }
  const UniqueSearch search(handle);
  do {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.push_back(found.cFileName);
  } while (FindNextFileA(search.get(), &found));
  const DWORD code = GetLastError();
  if (code != ERROR_NO_MORE_FILES) Raise(code);
  return names;
}

std::uint32_t ProcessNumber() { return GetCurrentProcessId(); }

}  // namespace tallyrun::FileSystem
