#include "tests/e2e/ExchangeDay.h"

#include <windows.h>

#include <filesystem>

#include "app/frmMainIds.h"
#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {

namespace {

using namespace frmMainIds;

std::string TradeLine(const std::string& side, const std::string& scrip,
                      const std::string& quantity, const std::string& client) {
  return "230001|" + scrip + "|A|" + side + "|" + quantity + "|10.00|" + client +
         "|D01|10:00:00|N|03-01-2010|410275\r\n";
}

}  // namespace

ExchangeDay::ExchangeDay() {
  SetFaults("");
  std::filesystem::remove_all(OnExchange(""));
  std::filesystem::create_directory(OnExchange(""));
}

void ExchangeDay::Start(const std::string& place, const std::string& workingFolder) {
  clerk_.reset();
  place_.emplace(place, Exchange::Practice);
  work_ = File("work\\");
  if (!workingFolder.empty()) {
    CreateDirectoryA(workingFolder.c_str(), nullptr);
    for (const char* list : {"BO.txt", "ISIN.txt"}) {
      WriteBytes(workingFolder + list, ReadBytes(Work(list)));
    }
    const std::string settings = place_->Settings();
    place_->Write("program\\Tallyrun.ini",
                  settings.substr(0, settings.size() - work_.size()) + workingFolder);
    work_ = workingFolder;
  }
  clerk_.emplace(place_->Program());
  clerk_->WaitUntilPainted();
}

void ExchangeDay::ImportDay(const std::string& mode) {
  const std::string name = "import\\" + mode + "_05-01-2010.txt";
  const std::string side = mode == "payin" ? "S" : "B";
  place_->Write(
      name, TradeLine(side, "ALDERCEM", "300", "O101") + TradeLine(side, "BALTOIL", "200", "S102"));
  Import(*clerk_, File(name));
  Main().Click(kBtnAutoFields);
}

void ExchangeDay::Send() {
  Main().Click(kBtnSend);
  const std::string title = clerk_->Answer("Yes").title;
  EXPECT_TRUE(title.ends_with(" of 05-Jan-2010 Send Confirmation")) << title;
}

void ExchangeDay::ExpectBox(const std::string& title, const std::string& text) {
  EXPECT_EQ(clerk_->Answer("OK"), Notice(title, text));
}

void ExchangeDay::ExpectCaption(const std::string& caption) {
  EXPECT_TRUE(Holds([&] { return Main().Caption() == caption; })) << Main().Caption();
}

void ExchangeDay::ExpectInEditor(const std::string& fileName) {
  HWND editor = nullptr;
  const auto isShown = [&] {
    editor = FindWindowA("Notepad", nullptr);
    return editor != nullptr && TextOf(editor).find(fileName) != std::string::npos;
  };
  ASSERT_TRUE(Holds(isShown)) << "no editor shows " << fileName;
  PostMessageA(editor, WM_CLOSE, 0, 0);
  EXPECT_TRUE(Holds([&] { return !IsWindow(editor); }));
}

void ExchangeDay::ExpectTransferFilesGone() {
  for (const char* name : {"ftp2KTX.txt", "ftp2KTX.bat", "out.txt"}) {
    EXPECT_TRUE(Holds([&] { return !IsThere(Work(name)); })) << name;
  }
}

void ExchangeDay::SetFaults(const std::string& names) const {
  WriteBytes(ExchangeFolder() + "\\..\\faults", names);
}

bool IsThere(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool Contains(const std::string& path, const std::string& text) {
  return IsThere(path) && ReadBytes(path).find(text) != std::string::npos;
}

}  // namespace tallyrun::testing
