// The exchange of lists with a client that the test plays while it is waited for.
#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "lists/ListExchange.h"
#include "tests/support/GridText.h"
#include "tests/support/ProgramFixture.h"

namespace tallyrun::testing {
namespace {

constexpr char kDone[] = "150 Opening.\r\n226 Transfer complete.\r\n";

struct ListExchange : ProgramFixture {
  void Exchange(const std::string& kind) {
    CurrentListKind = kind;
    LayOutListGrid(grid, kind);
    FillRows(grid, {"1|1201950000000017|Jos\xE9|C001"});
    if (kind == kBoKind) return SendBoList(grid, busyWindow);
    ReceiveIsinList(busyWindow, [this](const std::string& path) { LoadFileIntoGrid(path, grid); });
  }
};

TEST_F(ListExchange, EachOutcomeIsToldAndLeavesItsFiles) {
  const struct {
    const char *kind, *output, *text, *title;
  } cases[] = {{kBoKind, kDone, "List of BOs sent to KTX successfully.", "Send succeeded"},
               {kBoKind, "226 transfer COMPLETE.", "List of BOs not sent to KTX.", "Send failed"},
               {kIsinKind, "425 Lost.", "List of ISINs not received from KTX.", "Receive failed"}};
  platform.now = {2010, 5, 6, 14, 30, 5, 0};
  folder.Write("ISIN.txt", "old");
  for (const auto& each : cases) {
    const bool isSend = each.kind == kBoKind;
    std::string script;
    platform.onPendingEvents = [&] {
      script = folder.Read("ftp2KTX.txt");
      if (isSend) {
        EXPECT_EQ(folder.Read("BO_123456.txt"),
                  "S/N~BO ID~BO Name~Client Code\r\n1~1201950000000017~Jos\xE9~C001\r");
      }
      if (!isSend) folder.Write("ISIN.txt", "half");
      folder.Write("out.txt", each.output);
    };
    Exchange(each.kind);
    EXPECT_EQ(platform.TakeMessage(),
              (Message{each.text, each.title,
                       each.output == kDone ? MessageIcon::Information : MessageIcon::Critical}));
    EXPECT_EQ(folder.Read("ISIN.txt"), "old");
    EXPECT_EQ(folder.EntryCount(), 1) << each.text;
    EXPECT_EQ(script.substr(script.find("cd entry\r\n") + 10),
              isSend ? "mkdir BO_123456\r\nrename BO_123456.txt "
                       "BO_123456/BO_123456_06-May-10_02-30-05PM.txt\r\nput BO_123456.txt\r\nbye"
                     : "get ISIN.txt\r\nbye");
  }
}

TEST_F(ListExchange, AnErrorLeavesTheWindowItselfAgainAndAnEndingProgramSaysNothing) {
  EXPECT_THROW(Exchange(kBoKind), RuntimeError);  // the client wrote nothing
  ExpectWindow("");
  // No list before: the failed receive has nothing to put back, and leaves the transfer's files.
  platform.onPendingEvents = [this] { folder.Write("out.txt", "530 Login incorrect."); };
  EXPECT_THROW(Exchange(kIsinKind), RuntimeError);
  EXPECT_EQ(platform.TakeMessage().title, "Receive failed");
  EXPECT_TRUE(folder.Has("out.txt"));
  platform.onPendingEvents = [] { throw ProgramEnding{}; };
  EXPECT_THROW(Exchange(kBoKind), ProgramEnding);
}

}  // namespace
}  // namespace tallyrun::testing
