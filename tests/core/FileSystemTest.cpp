// Files that another program holds: what only Windows refuses.
#include <windows.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

#include "core/RuntimeError.h"
#include "core/modFileIO.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun {
namespace {

using testing::TempFolder;

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueFile = std::unique_ptr<HANDLE, HandleCloser>;

UniqueFile HoldOpen(const std::string& path, DWORD sharing) {
  UniqueFile file(
      CreateFileA(path.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_NE(file.get(), INVALID_HANDLE_VALUE);
  return file;
}

void ExpectPermissionDenied(const std::function<void()>& step, const char* what) {
  try {
    step();
    ADD_FAILURE() << what << " was let through";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Kind(), ErrorKind::PermissionDenied) << what;
  }
}

TEST(FileSystemTest, FileHeldByAnotherProgramStaysAsItIs) {
  TempFolder folder;
  folder.Write("held.txt", "old");
  for (const DWORD sharing : {0, FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
    {
      const UniqueFile held = HoldOpen(folder / "held.txt", sharing);
      ExpectPermissionDenied([&] { WriteWholeFile(folder / "held.txt", "new"); }, "writing");
      ExpectPermissionDenied([&] { DeleteFileAt(folder / "held.txt"); }, "deleting");
      if (sharing == 0) {
        ExpectPermissionDenied([&] { ReadWholeFile(folder / "held.txt"); }, "reading");
      }
    }
    EXPECT_EQ(folder.Read("held.txt"), "old");
    EXPECT_EQ(folder.EntryCount(), 1);
  }
  WriteWholeFile(folder / "held.txt", "new");
  EXPECT_EQ(folder.Read("held.txt"), "new");
}

TEST(FileSystemTest, FileThatAnotherProgramStillWritesIsRead) {
  TempFolder folder;
  const UniqueFile writer(CreateFileA((folder / "out.txt").c_str(), GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, CREATE_NEW, 0,
                                      nullptr));
  DWORD written = 0;
  ASSERT_TRUE(WriteFile(writer.get(), "226", 3, &written, nullptr));
  EXPECT_EQ(ReadWholeFile(folder / "out.txt"), "226");
}

TEST(FileSystemTest, NameThatNoFileCanHaveIsAPathNotFound) {
  TempFolder folder;
  for (const char* name : {"a<b.txt", "a|b.txt", "a*b.txt"}) {
    try {
      WriteWholeFile(folder / name, "x");
      ADD_FAILURE() << name;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Kind(), ErrorKind::PathNotFound) << name;
    }
    EXPECT_EQ(folder.EntryCount(), 0) << name;
  }
}

}  // namespace
}  // namespace tallyrun
