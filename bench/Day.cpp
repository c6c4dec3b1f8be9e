// day WORK OUT: runs a whole Pay In day on the files in the folder WORK with the routines that
// the program's buttons call, and writes what it makes into the folder OUT: the entry file, the
// report and the holding message. Prints a line per measurement: "STEP SECONDS PROCESSOR-SECONDS
// KILOBYTES" for each step and the whole (the second figure says what a busy machine hides, the
// third what the process holds after the step), then "NAME VALUE" for rows and memory.
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <functional>
#include <string>

#include "app/FillAutoFields.h"
#include "app/MergeEqualEntries.h"
#include "app/TradeFile.h"
#include "core/entry/EntryRow.h"
#include "core/entry/Settings.h"
#include "core/entry/SortEntries.h"
#include "core/files/modFileIO.h"
#include "core/grid/GridRows.h"
#include "core/masterlists/Lists.h"
#include "holding/CheckHoldings.h"
#include "reports/InstructionReport.h"
#include "tests/support/FakeBusyWindow.h"
#include "tests/support/RecordingPlatform.h"

namespace tallyrun::bench {
namespace {

constexpr Date kDay = {2010, 1, 5};

// A kilobyte figure of the process's own status, 0 where the system has none.
long KilobytesOf(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    long kilobytes = 0;
    if (word == name + ":" && status >> kilobytes) return kilobytes;
  }
  return 0;
}

// Seconds on the wall and on the processor.
struct Spent {
  double wall = 0;
  double processor = 0;
};

Spent Measure(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  const std::clock_t processorBegin = std::clock();
  work();
  const std::clock_t processorTicks = std::clock() - processorBegin;
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
  return {wall.count(), static_cast<double>(processorTicks) / CLOCKS_PER_SEC};
}

void Print(const char* name, const Spent& spent) {
  std::printf("%s %.6f %.6f %ld\n", name, spent.wall, spent.processor, KilobytesOf("VmRSS"));
}

class Day {
 public:
  Day(std::string work, std::string out) : work_(std::move(work)), out_(std::move(out)) {
    Settings = {"410275", "7702310000000017", "7702310000000000", work_};
    EntryMode = kPayIn;
    grid_.SetCols(EntryColumn::kCount);
    for (int col = 0; col < EntryColumn::kCount; ++col) {
      grid_.SetText(0, col, kEntryCaptions.at(static_cast<std::size_t>(col)));
    }
    ClearEntryGrid(grid_);
  }

  void Run() {
    Step("lists", [] { LoadLists(); });
    Step("import", [this] {
      LoadTradeFile(grid_, work_ + "payin_05-01-2010.txt", EntryMode.tradeSide);
      SortEntries(grid_);
    });
    const int imported = grid_.Rows() - 1;
    Step("autofill", [this] {
      SortEntries(grid_);
      FillAutoFields(grid_, kDay);
    });
    Step("summarize", [this] {
      SortEntries(grid_);
      MergeEqualEntries(grid_);
      FillInternalRefNos(grid_);
    });
    Step("check", [this] {
      CheckHoldingFile({grid_, window_, [] {}, [] {}}, work_ + "11DPA6UX.TXT");
    });
    // The files go where nothing else lies, so that a run leaves its inputs as they were.
    Settings.backupLocation = out_;
    Step("save", [this] { SaveGridToFile(grid_, EntryFilePath(kDay)); });
    Step("reload", [this] { LoadFileIntoGrid(EntryFilePath(kDay), grid_); });
    Step("report", [this] { BuildPayInReport(grid_); });
    Print("whole", whole_);
    std::printf("rows %d\nsummarized %d\npeak_kb %ld\n", imported, grid_.Rows() - 1,
                KilobytesOf("VmHWM"));
    std::ofstream(out_ + "holding.txt", std::ios::binary) << HoldingMessage;
  }

 private:
  void Step(const char* name, const std::function<void()>& work) {
    const Spent spent = Measure(work);
    whole_.wall += spent.wall;
    whole_.processor += spent.processor;
    Print(name, spent);
  }

  std::string work_;
  std::string out_;
  testing::FakeBusyWindow window_;
  FlexGrid grid_;
  Spent whole_;
};

}  // namespace
}  // namespace tallyrun::bench

int main(int argc, char** argv) {
  using namespace tallyrun::bench;
  if (argc != 3) {
    std::fputs("usage: day WORK OUT\n", stderr);
    return 2;
  }
  const std::string out = std::string(argv[2]) + "/";
  tallyrun::testing::RecordingPlatform platform;
  platform.programFolder = out;
  Day(std::string(argv[1]) + "/", out).Run();
  for (const tallyrun::Message& message : platform.messages) {
    std::fprintf(stderr, "%s: %s\n", message.title.c_str(), message.text.c_str());
  }
  return platform.messages.empty() ? 0 : 1;
}
