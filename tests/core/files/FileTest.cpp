#include <filesystem>
#include <gmock/gmock.h>

#include "core/files/modFileIO.h"
#include "core/grid/GridRows.h"
#include "core/grid/TildeTable.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

using ::testing::ElementsAre;
using FileTest = ProgramFixture;

std::string EveryByte() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

TEST_F(FileTest, BytesReplaceWhatWasThereAndSurviveReadingAndCopying) {
  for (const std::string& text : {std::string(5u << 20, 'x'), EveryByte(), std::string()}) {
    WriteWholeFile(folder / "data.txt", text);
    EXPECT_TRUE(folder.Read("data.txt") == text);
    EXPECT_TRUE(ReadWholeFile(folder / "data.txt") == text);
    EXPECT_EQ(FileLength(folder / "data.txt"), static_cast<std::int64_t>(text.size()));
    folder.Write("copy.txt", "old");
    EXPECT_TRUE(CopyTextFile(folder / "data.txt", folder / "copy.txt"));
    EXPECT_TRUE(folder.Read("copy.txt") == text);
    EXPECT_EQ(folder.EntryCount(), 2);
  }
  EXPECT_TRUE(platform.messages.empty());
  folder.Write("copy.txt", "old");
  EXPECT_FALSE(CopyTextFile(folder / "none.txt", folder / "copy.txt"));
  EXPECT_EQ(platform.TakeMessage(), (Message{"File not found"}));
  EXPECT_EQ(folder.Read("copy.txt"), "old");
}

TEST_F(FileTest, ErrorsAreToldInTheWordsOfTheirKindAndLeaveTheFiles) {
  folder.Write("read-only.txt", "old");
  std::filesystem::permissions(folder.Native("read-only.txt"), std::filesystem::perms::owner_read);
  folder.Write("sub\\file.txt", "x");
  const struct {
    std::function<void(const std::string&)> step;
    const char *name, *error;
  } cases[] = {
      {ReadWholeFile, "none.txt", "File not found"},
      {ReadWholeFile, "no\\f.txt", "Path not found"},
      {ReadWholeFile, "sub", "Permission denied"},
      {FileLength, "none.txt", "File not found"},
      {DeleteFileAt, "none.txt", "File not found"},
      {DeleteFileAt, "read-only.txt", "Permission denied"},
      {CreateFolder, "sub", "Path/File access error"},
      {CreateFolder, "no\\sub", "Path not found"},
      {[](const std::string& path) { WriteWholeFile(path, ""); }, "no\\f.txt", "Path not found"},
      {[](const std::string& path) { WriteWholeFile(path, ""); }, "sub", "Permission denied"},
      {[](const std::string& path) { WriteWholeFile(path, ""); }, "read-only.txt",
       "Permission denied"}};
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
  EXPECT_TRUE(FolderExists(folder.Path()));
  EXPECT_TRUE(FolderExists(folder / "folder_BO.txt"));
  for (const char* name : {"BO.txt", "none", "*"}) EXPECT_FALSE(FolderExists(folder / name));
  EXPECT_FALSE(FolderExists(""));
  EXPECT_TRUE(FileExists(folder / "BO.txt"));
  EXPECT_FALSE(FileExists(folder / "folder_BO.txt"));
  EXPECT_THAT(ListFiles(folder / "*BO.txt"),
              ElementsAre("2010-05-06_14-30-05_BO.txt", "2010-05-07_08-00-00_BO.txt", "a_bo.TXT",
                          "BBO.txt", "BO.txt", "Z_BO.txt"));
  EXPECT_THAT(ListFiles(folder / "?BO.*"), ElementsAre("BBO.txt"));
  EXPECT_THAT(ListFiles(folder / "*.none"), ElementsAre(""));
  EXPECT_THAT(ListFiles(folder / "no\\*.txt"), ElementsAre(""));
  for (int round = 0; round < 2; ++round) DeleteMatching(folder / "*bo.TXT");
  EXPECT_THAT(ListFiles(folder / "*"), ElementsAre("BO.tx", "BO.txt.bak", "long_name_BO.txtx"));
}

// The grid's caption row and rows as written in a list file.
struct GridFileTest : FileTest {
  GridFileTest() {
    grid.SetCols(4);
    grid.SetMeasurer(TextMeasurer::FixedWidth(100));
    grid.SetText(0, 1, "BO ID");
    FillRows(grid, {"1|old|old|old"});
  }
  bool Load(const std::string& text) {
    folder.Write("BO.txt", text);
    return LoadFileIntoGrid(folder / "BO.txt", grid);
  }
};

TEST_F(GridFileTest, IsWrittenAsATildeTableWhoseLastCellGainsACarriageReturnWithEveryRound) {
  FillRows(grid, {"1|12010|Two\r\nlines\r\n|A\rB\n"});
  SaveGridToFile(grid, folder / "BO.txt");
  EXPECT_EQ(folder.Read("BO.txt"), "~BO ID~~\r\n1~12010~Twolines~A\rB\n\r");
  ASSERT_TRUE(LoadFileIntoGrid(folder / "BO.txt", grid));
  EXPECT_EQ(GridToText(grid), "~BO ID~~\r\n1~12010~Twolines~A\rB\n\r\r");
  const std::string text = "h~h~h~h\r\n1~" + std::string(1, '\0') + "\xFF~\x80~end";
  ASSERT_TRUE(Load(text));
  EXPECT_EQ(GridToText(grid), text + "\r");
}

TEST_F(GridFileTest, AFaultIsToldAndStopsTheLoadThere) {
  EXPECT_FALSE(Load("a~b~c~d\r\n1~2~3~4~5\r\n6~7~8~9"));
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"Tried to read file: " + (folder / "BO.txt") +
                         "\r\nError Description: Subscript out of range",
                     "Error loading file into list.", MessageIcon::Critical}));
  EXPECT_THAT(RowsOf(grid), ElementsAre("1|2|3|4", "|||"));
  EXPECT_FALSE(Load(""));
  EXPECT_FALSE(LoadFileIntoGrid(folder / "none.txt", grid));
  EXPECT_TRUE(platform.messages[0].text.ends_with(": Invalid procedure call or argument"));
  EXPECT_TRUE(platform.messages[1].text.ends_with(": File not found"));
  EXPECT_THAT(RowsOf(grid), ElementsAre("1|||"));
}

}  // namespace
}  // namespace tallyrun::testing
