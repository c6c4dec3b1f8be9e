// Transfers between the real program and the practice exchange in foul weather, through the real
// client; the fair day is the demo's.
#include <windows.h>

#include <filesystem>
#include <gtest/gtest.h>

#include "app/frmMainIds.h"
#include "practice/clerk/Waiting.h"
#include "practice/clerk/Workday.h"
#include "tests/e2e/Workplace.h"

namespace tallyrun::testing {
namespace {

namespace fs = std::filesystem;
using namespace frmMainIds;

constexpr char kTallyrun[] = "Tallyrun";
constexpr char kSucceeded[] = "Send succeeded";
constexpr char kSent[] = "Records sent to KTX successfully.";
constexpr char kFailed[] = "Send failed";
constexpr char kNotSent[] = "Records were not sent to KTX.";
constexpr char kAlreadySent[] = "File already sent. Your sent file will be shown now.";
constexpr char kCaption[] = "Tallyrun v1.0 : Pay Out";
constexpr char kSending[] = "Tallyrun v1.0 : Pay Out...Sending records to KTX...Please wait.";
constexpr char kDayFile[] = "05-Jan-2010_PO_410275.txt";

bool IsThere(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// Whether the text has come into the file, which another program may be writing.
bool Contains(const std::string& path, const std::string& text) {
  return IsThere(path) && ReadBytes(path).find(text) != std::string::npos;
}

class TransferE2e : public ::testing::Test {
 protected:
  // Begins with an empty, faultless exchange, in a workplace whose name is as odd as one may be.
  TransferE2e() : place_(kPractice, "Am\xE9lie's R&D (100%)"), day(place_.Folder()) {
    SetFaults("");
    fs::remove_all(OnExchange(""));
    fs::create_directories(OnExchange(""));
    day.Clerk().WaitUntilPainted();
  }
  // Lets a client that still waits for an answer come to its end.
  ~TransferE2e() override { SetFaults(""); }

  // What the exchange is to do wrong from now on; nothing for none.
  void SetFaults(const std::string& names) { WriteBytes(TALLYRUN_STAGE "\\faults", names); }
  std::string OnExchange(const std::string& name) {
    return TALLYRUN_STAGE "\\exchange\\entry\\" + name;
  }
  std::string SentFile() { return OnExchange("05-Jan-2010\\") + kDayFile; }
  std::string Work(const std::string& name) { return place_.File("work\\" + name); }

  void FillPayOut() {
    const char* const purchase = "1|ALDERCEM|A|B|300|99.90|O101|D01|10:00:00|N|03-01-2010|410275";
    place_.Write("import\\payout_05-01-2010.txt", purchase);
    day.Import("payout_05-01-2010.txt");
    day.Main().Click(kBtnAutoFields);
  }

  // Closes the box that a whole attempt ends with.
  void ExpectEnd(const std::string& title, const std::string& text) {
    EXPECT_EQ(day.Answer("OK"), Notice(title, text));
    for (const char* name : {"ftp2KTX.txt", "ftp2KTX.bat", "out.txt"}) {
      EXPECT_TRUE(Holds([&] { return !IsThere(Work(name)); })) << name;
    }
    day.AwaitCaption(day.Main(), kCaption);
  }

 private:
  Workplace place_;

 protected:
  Workday day;
};

TEST_F(TransferE2e, EachTroubleIsToldAndTheNextSendIsAsGoodAsTheFirst) {
  const struct {
    const char* faults;
    bool hasLocalFile;  // the day's file was saved before
    const char *title, *text;
    bool arrives;
  } troubles[] = {{"refuse-login", false, kTallyrun, "File not found", false},
                  {"refuse-login", true, kTallyrun, kAlreadySent, false},
                  {"refuse-upload", true, kFailed, kNotSent, false},
                  {"drop-upload", false, kFailed, kNotSent, false},
                  {"full", false, kFailed, kNotSent, false},
                  {"lowercase-replies", false, kFailed, kNotSent, true},
                  {"", true, kSucceeded, kSent, true}};
  FillPayOut();
  for (const auto& trouble : troubles) {
    SCOPED_TRACE(trouble.faults);
    DeleteFileA(Work(kDayFile).c_str());
    DeleteFileA(SentFile().c_str());
    if (trouble.hasLocalFile) WriteBytes(Work(kDayFile), "saved before");
    SetFaults(trouble.faults);
    day.Send();
    if (trouble.title != kTallyrun) {
      ExpectEnd(trouble.title, trouble.text);
    } else {
      EXPECT_EQ(day.Answer("OK"), Notice(kTallyrun, trouble.text));
      if (trouble.hasLocalFile) day.CloseTextEditor(kDayFile);
      EXPECT_EQ(Contains(Work(kDayFile), "saved before"), trouble.hasLocalFile);
      day.AwaitCaption(day.Main(), kCaption);
    }
    EXPECT_EQ(IsThere(SentFile()), trouble.arrives);
  }
}

TEST_F(TransferE2e, TheClerkGoesOnWorkingWhileATransferRuns) {
  FillPayOut();
  SetFaults("never-answer");
  day.Send();
  day.AwaitCaption(day.Main(), kSending);
  ASSERT_TRUE(Holds([&] { return Contains(Work("out.txt"), "Connected"); }));
  // A second send is refused: one transfer runs at a time.
  day.Send();
  EXPECT_EQ(day.Answer("OK"), Notice(kTallyrun, "Permission denied"));
  day.AwaitCaption(day.Main(), kSending);
  day.EditCurrentRow(11, "7");
  day.ChooseList("BO");
  day.CloseList();
  day.AwaitCaption(day.Main(), kSending);
  SetFaults("");
  ExpectEnd(kSucceeded, kSent);
  // What was checked is what was sent.
  EXPECT_TRUE(Contains(SentFile(), "~300~"));
}

}  // namespace
}  // namespace tallyrun::testing
