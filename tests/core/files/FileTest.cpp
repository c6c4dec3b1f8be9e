#include <filesystem>
#include <gmock/gmock.h>

#include "core/files/modFileIO.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;
using FileTest = ProgramFixture;

TEST_F(FileTest, BytesReplaceWhatWasThereAndSurviveReadingAndCopying) {
  for (const std::string& text :
       {std::string(5u << 20, 'x'), std::string("\0\x1A\r\n\xFF", 5), std::string()}) {
    WriteWholeFile(folder / "data.txt", text);
    EXPECT_TRUE(folder.Read("data.txt") == text);
    EXPECT_EQ(FileLength(folder / "data.txt"), static_cast<std::int64_t>(text.size()));
    folder.Write("copy.txt", "old");
    EXPECT_TRUE(CopyTextFile(folder / "data.txt", folder / "copy.txt"));
    EXPECT_TRUE(folder.Read("copy.txt") == text);
    EXPECT_EQ(folder.EntryCount(), 2);
  }
  folder.Write("copy.txt", "old");
  EXPECT_FALSE(CopyTextFile(folder / "none.txt", folder / "copy.txt"));
  EXPECT_EQ(platform.TakeMessage(), (Message{"File not found"}));
  EXPECT_EQ(folder.Read("copy.txt"), "old");
}

TEST_F(FileTest, ErrorsAreToldInTheWordsOfTheirKindAndLeaveTheFiles) {
  folder.Write("read-only.txt", "old");
  std::filesystem::permissions(folder.Native("read-only.txt"), std::filesystem::perms::owner_read);
  folder.Write("sub\\file.txt", "x");
  const auto write = [](const std::string& path) { WriteWholeFile(path, ""); };
  const struct {
    std::function<void(const std::string&)> step;
    const char *name, *error;
  } cases[] = {{ReadWholeFile, "none.txt", "File not found"},
               {ReadWholeFile, "sub", "Permission denied"},
               {DeleteFileAt, "none.txt", "File not found"},
               {DeleteFileAt, "read-only.txt", "Permission denied"},
               {CreateFolder, "sub", "Path/File access error"},
               {CreateFolder, "no\\sub", "Path not found"},
               {write, "no\\f.txt", "Path not found"},
               {write, "sub", "Permission denied"},
               {write, "read-only.txt", "Permission denied"}};
  for (const auto& each : cases) {
    EXPECT_EQ(ErrorOf([&] { each.step(folder / each.name); }), each.error) << each.name;
  }
  EXPECT_EQ(folder.Read("read-only.txt"), "old");
  EXPECT_EQ(folder.EntryCount(), 2);
}

TEST_F(FileTest, FilesAndFoldersAreToldApartListedInOrderAndDeletedByPattern) {
  for (const char* name :
       {"2010-05-07_08-00-00_BO.txt", "2010-05-06_14-30-05_BO.txt", "BO.txt", "a_bo.TXT",
        "Z_BO.txt", "BBO.txt", "BO.txt.bak", "BO.tx", "long_name_BO.txtx"}) {
    folder.Write(name, "x");
  }
  CreateFolder(folder / "folder_BO.txt");
  for (const char* name : {"BO.txt", "none", "*"}) EXPECT_FALSE(FolderExists(folder / name));
  EXPECT_TRUE(FolderExists(folder / "folder_BO.txt") && !FolderExists(""));
  EXPECT_TRUE(FileExists(folder / "BO.txt") && !FileExists(folder / "folder_BO.txt"));
  EXPECT_THAT(ListFiles(folder / "*BO.txt"),
              ElementsAre("2010-05-06_14-30-05_BO.txt", "2010-05-07_08-00-00_BO.txt", "a_bo.TXT",
                          "BBO.txt", "BO.txt", "Z_BO.txt"));
  EXPECT_THAT(ListFiles(folder / "?BO.*"), ElementsAre("BBO.txt"));
  EXPECT_THAT(ListFiles(folder / "no\\*.txt"), ElementsAre(""));
  for (int round = 0; round < 2; ++round) DeleteMatching(folder / "*bo.TXT");
  EXPECT_THAT(ListFiles(folder / "*"), ElementsAre("BO.tx", "BO.txt.bak", "long_name_BO.txtx"));
}

TEST_F(FileTest, AFaultOfATableIsToldAndStopsTheLoadThere) {
  grid.SetCols(4);
  folder.Write("BO.txt", "a~b~c~d\r\n1~2~3~4~5\r\n6~7~8~9");
  EXPECT_FALSE(LoadFileIntoGrid(folder / "BO.txt", grid));
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"Tried to read file: " + (folder / "BO.txt") +
                         "\r\nError Description: Subscript out of range",
                     "Error loading file into list.", MessageIcon::Critical}));
  EXPECT_THAT(RowsOf(grid), ElementsAre("1|2|3|4", "|||"));
  folder.Write("BO.txt", "");
  EXPECT_FALSE(LoadFileIntoGrid(folder / "BO.txt", grid));
  EXPECT_TRUE(platform.TakeMessage().text.ends_with(": Invalid procedure call or argument"));
  EXPECT_THAT(RowsOf(grid), ElementsAre("1|||"));
}

}  // namespace
}  // namespace tallyrun::testing
