// The few file operations that the system itself has to do, one implementation per system. Only
// core/files/modFileIO builds on them. Every operation raises the RuntimeError that fits the
// system's error code. Paths separate folders by a backslash on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallyrun::FileSystem {

// An open file, closed with the object.
class File {
 public:
  static File OpenToRead(const std::string& path);
  // Nothing when a file of that name exists already.
  static std::optional<File> CreateNew(const std::string& path);

  File(File&& other) noexcept;
  File& operator=(File&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~File();

  // Bytes read, 0 at the end of the file.
  std::size_t Read(char* buffer, std::size_t capacity);
  void Write(std::string_view bytes);
  // Puts what was written onto the disk itself.
  void Flush();
  std::int64_t Length() const;

 private:
  explicit File(std::intptr_t handle) : handle_(handle) {}

  std::intptr_t handle_;
};

struct Facts {
  bool isFolder = false;
  bool isReadOnly = false;
  std::int64_t length = 0;
};

Facts FactsOf(const std::string& path);

// Puts the file `source` in the place of `target` in one step; both lie in one folder.
void Replace(const std::string& source, const std::string& target);
void Remove(const std::string& path);
void MakeFolder(const std::string& path);

// Names of files, not folders, in `folder` (with its trailing backslash, or empty for the current
// one), in any order: at least those that match `pattern`. No such folder has no files.
std::vector<std::string> NamesIn(const std::string& folder, const std::string& pattern);

// A number that no other running process has.
std::uint32_t ProcessNumber();

}  // namespace tallyrun::FileSystem
