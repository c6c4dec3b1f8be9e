// The routines of core/files/modFileIO.h that take a grid.
#include "core/RuntimeError.h"
#include "core/files/LineBlocks.h"
#include "core/files/modFileIO.h"
#include "core/grid/GridRows.h"
#include "core/grid/TildeTable.h"

namespace tallyrun {

std::string GridToText(const FlexGrid& grid) {
  std::string text;
  WriteTildeTable(grid, [&text](std::string_view piece) { text += piece; });
  return text;
}

void SaveGridToFile(const FlexGrid& grid, const std::string& path) {
  WriteWholeFile(path, [&grid](const TextSink& sink) { WriteTildeTable(grid, sink); });
}

bool LoadFileIntoGrid(const std::string& path, FlexGrid& grid) {
  try {
    ClearEntryGrid(grid);
    LineBlocks blocks(path);
    ReadTildeTable(blocks, grid);
    return true;
  } catch (const std::exception& error) {
    TellLoadFailure("Error loading file into list.", path, error);
    return false;
  }
}

}  // namespace tallyrun
