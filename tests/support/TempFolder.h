// A folder of a test's own, made empty and removed with everything in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tallyrun::testing {

class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // With a trailing backslash, as a Backup Location has it, on every system.
  std::string Path() const;
  // The path of `name` in the folder.
  std::string operator/(std::string_view name) const;

  // The file as bytes. Write makes the folders that `name` names and gives back the path.
  std::string Write(std::string_view name, std::string_view text) const;
  std::string Read(std::string_view name) const;
  bool Has(std::string_view name) const;
  void Remove(std::string_view name) const;
  // How many files and folders lie in it.
  int EntryCount() const;
  // The same path for std::filesystem.
  std::filesystem::path Native(std::string_view name) const;

 private:
  std::filesystem::path root_;
};

// A file's bytes, apart from the file routines under test; a failure fails the test.
std::string ReadBytes(const std::filesystem::path& path);
void WriteBytes(const std::filesystem::path& path, std::string_view text);

}  // namespace tallyrun::testing
