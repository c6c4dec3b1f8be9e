// A folder of a test's own, made empty and removed with everything in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tallyrun::testing {

// A file's bytes, apart from the file routines under test; a failure fails the test.
std::string ReadBytes(const std::filesystem::path& path);
void WriteBytes(const std::filesystem::path& path, std::string_view text);

class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // With a trailing backslash, as a Backup Location has it, on every system.
  std::string Path() const { return root_.string() + "\\"; }
  // The path of `name` in the folder.
  std::string operator/(std::string_view name) const { return Path() + std::string(name); }

  // The file as bytes. Write makes the folders that `name` names and gives back the path.
  std::string Write(std::string_view name, std::string_view text) const;
  std::string Read(std::string_view name) const { return ReadBytes(Native(name)); }
  bool Has(std::string_view name) const { return std::filesystem::exists(Native(name)); }
  void Remove(std::string_view name) const { std::filesystem::remove(Native(name)); }
  // How many files and folders lie in it.
  int EntryCount() const;
  // The same path for std::filesystem.
  std::filesystem::path Native(std::string_view name) const;

 private:
  std::filesystem::path root_;
};

}  // namespace tallyrun::testing
