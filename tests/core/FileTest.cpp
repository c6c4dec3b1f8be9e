#include <functional>
#include <gmock/gmock.h>
#include <thread>

#include "core/GridRows.h"
#include "core/RuntimeError.h"
#include "core/Wildcard.h"
#include "core/modFileIO.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/TempFolder.h"

namespace tallyrun {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::RecordingPlatform;
using testing::TempFolder;

// What the step raises; empty when it raises nothing.
std::string ErrorOf(const std::function<void()>& step) {
  try {
    step();
  } catch (const RuntimeError& error) {
    return error.what();
  }
  return "";
}

std::string EveryByte() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

class FileTest : public ::testing::Test {
 protected:
  TempFolder folder;
  RecordingPlatform platform;
};

TEST_F(FileTest, BytesSurviveWritingAndReading) {
  for (const std::string& text : {std::string(), EveryByte(), std::string("one\r\ntwo\r")}) {
    WriteWholeFile(folder / "data.txt", text);
    EXPECT_EQ(folder.Read("data.txt"), text);
    EXPECT_EQ(ReadWholeFile(folder / "data.txt"), text);
    EXPECT_EQ(FileLength(folder / "data.txt"), static_cast<std::int64_t>(text.size()));
  }
}

TEST_F(FileTest, LargeFileIsReadAndWrittenWhole) {
  std::string text(40u << 20, 'x');
  text.back() = 'y';
  WriteWholeFile(folder / "large.txt", text);
  EXPECT_TRUE(ReadWholeFile(folder / "large.txt") == text);
}

TEST_F(FileTest, WritingReplacesTheWholeOfALongerFileAndLeavesNothingBeside) {
  folder.Write("data.txt", "a much longer text than the new one");
  WriteWholeFile(folder / "data.txt", "new");
  EXPECT_EQ(folder.Read("data.txt"), "new");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(FileTest, WritersInOneFolderKeepTheirFilesApart) {
  const auto write = [this](const std::string& name, char letter) {
    for (std::size_t length = 1; length <= 30; ++length) {
      WriteWholeFile(folder / name, std::string(length * 1000, letter));
    }
  };
  std::thread other([&] { write("b.txt", 'b'); });
  write("a.txt", 'a');
  other.join();
  EXPECT_TRUE(folder.Read("a.txt") == std::string(30000, 'a'));
  EXPECT_TRUE(folder.Read("b.txt") == std::string(30000, 'b'));
  EXPECT_EQ(folder.EntryCount(), 2);
}

TEST_F(FileTest, ReadOnlyFileIsNeitherWrittenNorDeleted) {
  folder.Write("data.txt", "old");
  std::filesystem::permissions(
      std::filesystem::path(folder.Path().substr(0, folder.Path().size() - 1)) / "data.txt",
      std::filesystem::perms::owner_read | std::filesystem::perms::group_read |
          std::filesystem::perms::others_read);
  EXPECT_EQ(ErrorOf([&] { WriteWholeFile(folder / "data.txt", "new"); }), "Permission denied");
  EXPECT_EQ(ErrorOf([&] { DeleteFileAt(folder / "data.txt"); }), "Permission denied");
  EXPECT_EQ(folder.Read("data.txt"), "old");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(FileTest, ErrorsAreToldInTheWordsOfTheirKind) {
  folder.Write("sub\\file.txt", "x");
  const struct {
    const char* what;
    std::function<void()> step;
    const char* error;
  } cases[] = {
      {"read missing", [&] { ReadWholeFile(folder / "none.txt"); }, "File not found"},
      {"read in missing folder", [&] { ReadWholeFile(folder / "no\\f.txt"); }, "Path not found"},
      {"read folder", [&] { ReadWholeFile(folder / "sub"); }, "Permission denied"},
      {"write in missing folder", [&] { WriteWholeFile(folder / "no\\f.txt", ""); },
       "Path not found"},
      {"write over folder", [&] { WriteWholeFile(folder / "sub", ""); }, "Permission denied"},
      {"length of missing", [&] { FileLength(folder / "none.txt"); }, "File not found"},
      {"delete missing", [&] { DeleteFileAt(folder / "none.txt"); }, "File not found"},
      {"make existing folder", [&] { CreateFolder(folder / "sub"); }, "Path/File access error"},
      {"make in missing folder", [&] { CreateFolder(folder / "no\\sub"); }, "Path not found"},
  };
  for (const auto& c : cases) EXPECT_EQ(ErrorOf(c.step), c.error) << c.what;
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(FileTest, CopyWritesTheSourceOverTheTarget) {
  folder.Write("BO.txt", EveryByte());
  folder.Write("copy.txt", "old");
  EXPECT_TRUE(CopyTextFile(folder / "BO.txt", folder / "copy.txt"));
  EXPECT_EQ(folder.Read("copy.txt"), EveryByte());
  EXPECT_THAT(platform.messages, IsEmpty());
}

TEST_F(FileTest, FailedCopyShowsTheErrorAloneAndKeepsTheTarget) {
  folder.Write("copy.txt", "old");
  EXPECT_FALSE(CopyTextFile(folder / "BO.txt", folder / "copy.txt"));
  EXPECT_EQ(platform.TakeMessage(), (Message{"File not found"}));
  EXPECT_EQ(folder.Read("copy.txt"), "old");
}

TEST_F(FileTest, FolderExistsOnlyForFolders) {
  folder.Write("file.txt", "x");
  EXPECT_TRUE(FolderExists(folder.Path()));
  EXPECT_TRUE(FolderExists(folder.Path().substr(0, folder.Path().size() - 1)));
  EXPECT_FALSE(FolderExists(""));
  EXPECT_FALSE(FolderExists(folder / "file.txt"));
  EXPECT_FALSE(FolderExists(folder / "none"));
  EXPECT_FALSE(FolderExists(folder / "*"));
  EXPECT_TRUE(FileExists(folder / "file.txt"));
  EXPECT_FALSE(FileExists(folder.Path()));
  CreateFolder(folder / "made");
  EXPECT_TRUE(FolderExists(folder / "made"));
}

TEST_F(FileTest, ListFilesGivesMatchingNamesInOrderIgnoringCase) {
  for (const char* name :
       {"2010-05-07_08-00-00_BO.txt", "2010-05-06_14-30-05_BO.txt", "BO.txt", "a_bo.TXT",
        "Z_BO.txt", "ISIN.txt", "BO.txt.bak", "BO.tx", "long_name_BO.txtx"}) {
    folder.Write(name, "x");
  }
  CreateFolder(folder / "folder_BO.txt");
  EXPECT_THAT(ListFiles(folder / "*BO.txt"),
              ElementsAre("2010-05-06_14-30-05_BO.txt", "2010-05-07_08-00-00_BO.txt", "a_bo.TXT",
                          "BO.txt", "Z_BO.txt"));
  EXPECT_THAT(ListFiles(folder / "isin.TXT"), ElementsAre("ISIN.txt"));
  EXPECT_THAT(ListFiles(folder / "*.none"), ElementsAre(""));
  EXPECT_THAT(ListFiles(folder / "no\\*.txt"), ElementsAre(""));
}

TEST_F(FileTest, DeleteMatchingLeavesTheOthers) {
  for (const char* name : {"ftp2KTX.txt", "FTP2KTX.BAT", "ftp2KTX_old.txt"}) folder.Write(name, "");
  DeleteMatching(folder / "ftp2KTX.*");
  DeleteMatching(folder / "ftp2KTX.*");
  EXPECT_THAT(ListFiles(folder / "*"), ElementsAre("ftp2KTX_old.txt"));
}

TEST(WildcardTest, StarsTryEveryLength) {
  const struct {
    const char* name;
    const char* pattern;
    bool matches;
  } cases[] = {
      {"BO.txt", "*", true},
      {"BO", "*.*", true},
      {"BO.txt", "bo.TXT", true},
      {"BO.txt", "?O.txt", true},
      {"O.txt", "?O.txt", false},
      {"aBaBO.txt", "*B*BO.txt", true},
      {"BBO.txt", "*BO.txt", true},
      {"BO.txts", "*BO.txt", false},
      {"", "*", true},
      {"BO.txt", "BO.txt*", true},
      {"BO.txt", "", false},
      {"a.b.c", "a.*.c", true},
      {"\xC9t\xE9.txt", "\xE9t\xC9.*", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(MatchesWildcard(c.name, c.pattern), c.matches) << c.name << " " << c.pattern;
  }
}

TEST(SplitTest, CutsAtEverySeparatorAndAnEmptyTextHasNoPiece) {
  EXPECT_THAT(Split("", "~"), IsEmpty());
  EXPECT_THAT(Split("a", "~"), ElementsAre("a"));
  EXPECT_THAT(Split("~a~~", "~"), ElementsAre("", "a", "", ""));
  EXPECT_THAT(Split("a\r\nb\nc\r\r\n", "\r\n"), ElementsAre("a", "b\nc\r", ""));
}

// The grid's caption row and rows as written in a list file.
class GridFileTest : public FileTest {
 protected:
  GridFileTest() {
    grid.SetCols(4);
    grid.SetMeasurer(TextMeasurer::FixedWidth(100));
    SetRow(0, {"S/N", "BO ID", "BO Name", "Client Code"});
    grid.SetRows(2);
  }

  void SetRow(int row, const std::vector<std::string>& cells) {
    for (std::size_t col = 0; col < cells.size(); ++col) {
      grid.SetText(row, static_cast<int>(col), cells[col]);
    }
  }

  std::vector<std::string> Row(int row) const {
    std::vector<std::string> cells;
    cells.reserve(static_cast<std::size_t>(grid.Cols()));
    for (int col = 0; col < grid.Cols(); ++col) cells.push_back(grid.Text(row, col));
    return cells;
  }

  bool Load(const std::string& text) {
    folder.Write("BO.txt", text);
    return LoadFileIntoGrid(folder / "BO.txt", grid);
  }

  FlexGrid grid;
};

TEST_F(GridFileTest, IsWrittenAsTildeTableEndingInALoneCarriageReturn) {
  SetRow(1, {"1", "12010", "Two\r\nlines\r\n", "A\rB\n"});
  SaveGridToFile(grid, folder / "BO.txt");
  EXPECT_EQ(folder.Read("BO.txt"), "S/N~BO ID~BO Name~Client Code\r\n1~12010~Twolines~A\rB\n\r");
  SetRow(1, {"", "", "", ""});
  EXPECT_EQ(GridToText(grid), "S/N~BO ID~BO Name~Client Code\r\n~~~\r");
}

TEST_F(GridFileTest, LastCellKeepsTheCarriageReturnAndGainsOneWithEverySave) {
  SetRow(1, {"1", "12010", "Name", "C1"});
  SaveGridToFile(grid, folder / "BO.txt");
  ASSERT_TRUE(LoadFileIntoGrid(folder / "BO.txt", grid));
  EXPECT_THAT(Row(1), ElementsAre("1", "12010", "Name", "C1\r"));
  EXPECT_THAT(GridToText(grid), ::testing::EndsWith("C1\r\r"));
}

TEST_F(GridFileTest, CellsAreTrimmedOfBlanksAlone) {
  ASSERT_TRUE(Load("a~b~c~d\r\n 1 ~\t2 ~  ~ 4\r \r\n5~\xE9\x80~6\nx~7"));
  EXPECT_THAT(Row(0), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(Row(1), ElementsAre("1", "\t2", "", "4\r"));
  EXPECT_THAT(Row(2), ElementsAre("5", "\xE9\x80", "6\nx", "7"));
}

TEST_F(GridFileTest, NulAndHighBytesSurviveLoadAndSave) {
  std::string text = "h~h~h~h\r\n1~" + std::string(1, '\0') + "\xFF~\x80~end";
  ASSERT_TRUE(Load(text));
  EXPECT_EQ(GridToText(grid), text + "\r");
}

TEST_F(GridFileTest, ShortLineLeavesTheRestAsAfterTheReset) {
  SetRow(1, {"1", "old", "old", "old"});
  ASSERT_TRUE(Load("only\r\n\r\n7~8"));
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_THAT(Row(0), ElementsAre("only", "BO ID", "BO Name", "Client Code"));
  EXPECT_THAT(Row(1), ElementsAre("1", "", "", ""));
  EXPECT_THAT(Row(2), ElementsAre("7", "8", "", ""));
}

TEST_F(GridFileTest, LineWithTooManyPiecesStopsTheLoadThere) {
  EXPECT_FALSE(Load("a~b~c~d\r\n1~2~3~4~5\r\n6~7~8~9"));
  EXPECT_EQ(platform.TakeMessage(),
            (Message{"Tried to read file: " + (folder / "BO.txt") +
                         "\r\nError Description: Subscript out of range",
                     "Error loading file into list.", MessageIcon::Critical}));
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_THAT(Row(1), ElementsAre("1", "2", "3", "4"));
  EXPECT_THAT(Row(2), ElementsAre("", "", "", ""));
}

TEST_F(GridFileTest, MissingOrEmptyFileLeavesTheEmptySheet) {
  const char* const errors[] = {"File not found", "Invalid procedure call or argument"};
  for (const char* error : errors) {
    SetRow(1, {"1", "old", "old", "old"});
    EXPECT_FALSE(LoadFileIntoGrid(folder / "BO.txt", grid));
    EXPECT_EQ(platform.TakeMessage().text,
              "Tried to read file: " + (folder / "BO.txt") + "\r\nError Description: " + error);
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_THAT(Row(1), ElementsAre("1", "", "", ""));
    folder.Write("BO.txt", "");
  }
}

TEST_F(GridFileTest, ColumnsWidenToTheWidestCellAndNeverNarrow) {
  grid.SetColWidth(0, 2000);
  grid.SetColWidth(1, 100);
  ASSERT_TRUE(Load("a~b~c~d\r\n1~12345~x~y\r\n2~123~x~y"));
  EXPECT_EQ(grid.ColWidth(0), 2000);
  EXPECT_EQ(grid.ColWidth(1), 5 * 100 + kCellMargin);
}

}  // namespace
}  // namespace tallyrun
