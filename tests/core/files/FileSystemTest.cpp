// Files that another program holds: what only Windows refuses.
#include <windows.h>

#include <gtest/gtest.h>

#include "core/files/modFileIO.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {
namespace {

// Another program's use of the file, for as long as it lives.
struct Held {
  Held(const std::string& path, DWORD access, DWORD sharing)
      : file(CreateFileA(path.c_str(), access, sharing, nullptr, OPEN_ALWAYS, 0, nullptr)) {
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
  }
  ~Held() { CloseHandle(file); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  HANDLE file;
};

TEST(FileSystemTest, AFileHeldByAnotherProgramStaysAsItIs) {
  const TempFolder folder;
  folder.Write("held.txt", "old");
  const std::string path = folder / "held.txt";
  for (const DWORD sharing : {0, FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
    {
      const Held held(path, GENERIC_READ, sharing);
      EXPECT_EQ(ErrorOf([&] { WriteWholeFile(path, "new"); }), "Permission denied");
      EXPECT_EQ(ErrorOf([&] { DeleteFileAt(path); }), "Permission denied");
      EXPECT_EQ(ErrorOf([&] { ReadWholeFile(path); }), sharing == 0 ? "Permission denied" : "");
    }
    EXPECT_EQ(folder.Read("held.txt"), "old");
    EXPECT_EQ(folder.EntryCount(), 1);
  }
  EXPECT_EQ(ErrorOf([&] { WriteWholeFile(folder / "a<b.txt", "x"); }), "Path not found");
  // One that is still written is read.
  const Held writer(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
  EXPECT_EQ(ReadWholeFile(path), "old");
}

}  // namespace
}  // namespace tallyrun::testing
