#include "tests/support/TempFolder.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>

namespace tallyrun::testing {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
  std::random_device random;
  do {
    root_ = fs::temp_directory_path() / ("tallyrun-test-" + std::to_string(random()));
  } while (!fs::create_directory(root_));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  for (const auto& entry : fs::recursive_directory_iterator(root_, ignored)) {
    fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add, ignored);
  }
  fs::remove_all(root_, ignored);
}

std::string TempFolder::Write(std::string_view name, std::string_view text) const {
  fs::create_directories(Native(name).parent_path());
  WriteBytes(Native(name), text);
  return *this / name;
}

int TempFolder::EntryCount() const {
  return static_cast<int>(std::distance(fs::directory_iterator(root_), fs::directory_iterator()));
}

fs::path TempFolder::Native(std::string_view name) const {
  std::string mapped(name);
  std::replace(mapped.begin(), mapped.end(), '\\', '/');
  return root_ / mapped;
}

std::string ReadBytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << "cannot read " << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteBytes(const fs::path& path, std::string_view text) {
  std::ofstream file(path, std::ios::binary);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  EXPECT_TRUE(file) << "cannot write " << path;
}

}  // namespace tallyrun::testing
