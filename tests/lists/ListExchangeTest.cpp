// The exchange of lists with a client that the test plays while it is waited for.
#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "lists/ListExchange.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

constexpr char kCaption[] = "Tallyrun v1.0 : the list";
constexpr char kDone[] = "150 Opening.\r\n226 Transfer complete.\r\n";
constexpr char kNewList[] =
    "S/N~ISIN Code~ISIN Name~Scrip ID~Scrip Code\r\n1~INE0AA101011~ALPHA~ALP~501";

struct ListExchange : ProgramFixture {
  ListExchange() {
    platform.now = {2010, 5, 6, 14, 30, 5, 0};
    busyWindow.SetCaption(kCaption);
    platform.onPendingEvents = [this] { RunClient(); };
    platform.onMessage = [this](const Message&) { captionAtOutcome = busyWindow.caption; };
  }

  void RunClient() {
    ExpectWindow(CurrentListKind == kBoKind ? "Sending list of BOs to KTX...Please wait..."
                                            : "Receiving list of ISINs from KTX...Please wait...",
                 PointerShape::Hourglass);
    script = folder.Read("ftp2KTX.txt");
    if (CurrentListKind == kBoKind) rowsSent = folder.Read("BO_123456.txt");
    if (!download.empty()) folder.Write("ISIN.txt", download);
    if (!output.empty()) folder.Write("out.txt", output);
  }

  void Exchange(const std::string& kind, const std::vector<std::string>& rows) {
    CurrentListKind = kind;
    LayOutListGrid(grid, kind);
    FillRows(grid, rows);
    if (kind == kBoKind) return SendBoList(grid, busyWindow);
    ReceiveIsinList(busyWindow, [this](const std::string& path) { LoadFileIntoGrid(path, grid); });
  }

  std::string output = kDone, download, script, rowsSent, captionAtOutcome;
};

TEST_F(ListExchange, EachOutcomeIsToldBehindTheCaptionAndLeavesItsFiles) {
  const struct {
    const char *kind, *output, *download, *text, *title;
    MessageIcon icon;
    const char* isinFile;
    int filesLeft;
  } cases[] = {{kBoKind, kDone, "", "List of BOs sent to KTX successfully.", "Send succeeded",
                MessageIcon::Information, "old", 1},
               {kBoKind, "226 transfer COMPLETE.", "", "List of BOs not sent to KTX.",
                "Send failed", MessageIcon::Critical, "old", 1},
               {kIsinKind, "425 Lost.", "half", "List of ISINs not received from KTX.",
                "Receive failed", MessageIcon::Critical, "old", 1},
               {kIsinKind, kDone, kNewList, "List of ISINs received from KTX successfully.",
                "Recieve succeeded", MessageIcon::Information, kNewList, 2}};
  folder.Write("ISIN.txt", "old");
  for (const auto& each : cases) {
    output = each.output;
    download = each.download;
    Exchange(each.kind, {"1|1201950000000017|Jos\xE9|C001"});
    EXPECT_EQ(platform.TakeMessage(), (Message{each.text, each.title, each.icon}));
    EXPECT_EQ(captionAtOutcome, std::string(kCaption) + "..." + each.text);
    ExpectWindow(kCaption);
    EXPECT_EQ(folder.Read("ISIN.txt"), each.isinFile);
    EXPECT_EQ(folder.EntryCount(), each.filesLeft) << each.text;
    const char* ownLines = each.kind == kIsinKind
                               ? "get ISIN.txt\r\nbye"
                               : "mkdir BO_123456\r\nrename BO_123456.txt "
                                 "BO_123456/BO_123456_06-May-10_02-30-05PM.txt\r\n"
                                 "put BO_123456.txt\r\nbye";
    EXPECT_EQ(script.substr(script.find("cd entry\r\n") + 10), ownLines);
  }
  EXPECT_EQ(rowsSent, "S/N~BO ID~BO Name~Client Code\r\n1~1201950000000017~Jos\xE9~C001\r");
  EXPECT_EQ(folder.Read("2010-05-06_14-30-05_ISIN.txt"), "old");
  EXPECT_EQ(RowsOf(grid), std::vector<std::string>{"1|INE0AA101011|ALPHA|ALP|501"});
}

TEST_F(ListExchange, AnErrorLeavesTheWindowItselfAgainAndAnEndingProgramSaysNothing) {
  output.clear();
  EXPECT_THROW(Exchange(kBoKind, {"1|a|b|c"}), RuntimeError);
  ExpectWindow(kCaption);
  // No list before: the failed receive has nothing to put back, and leaves the transfer's files.
  output = "530 Login incorrect.";
  EXPECT_THROW(Exchange(kIsinKind, {"1|"}), RuntimeError);
  EXPECT_EQ(platform.TakeMessage().title, "Receive failed");
  EXPECT_TRUE(folder.Has("out.txt"));
  ExpectWindow(kCaption);
  platform.onPendingEvents = [] { throw ProgramEnding{}; };
  EXPECT_THROW(Exchange(kBoKind, {"1|a|b|c"}), ProgramEnding);
}

TEST_F(ListExchange, AnotherTransferMeanwhileIsRefusedBeforeItTouchesAFile) {
  folder.Write("ISIN.txt", "old");
  for (const char* first : {kBoKind, kIsinKind}) {
    platform.onPendingEvents = [&] {
      const int files = folder.EntryCount();
      for (const char* second : {kBoKind, kIsinKind}) {
        EXPECT_EQ(ErrorOf([&] { Exchange(second, {"1|a|b|c"}); }), "Permission denied");
        EXPECT_EQ(folder.EntryCount(), files) << first << second;
      }
      CurrentListKind = first;
      RunClient();
    };
    Exchange(first, {"1|a|b|c"});
    EXPECT_EQ(platform.TakeMessage().icon, MessageIcon::Information);
    ExpectWindow(kCaption);
  }
}

}  // namespace
}  // namespace tallyrun::testing
