#include "tests/e2e/ExchangeDay.h"

#include <windows.h>

#include <filesystem>

#include "app/frmMainIds.h"
#include "practice/clerk/Waiting.h"

namespace tallyrun::testing {

using namespace frmMainIds;

ExchangeDay::ExchangeDay() {
  SetFaults("");
  std::filesystem::remove_all(OnExchange(""));
  std::filesystem::create_directory(OnExchange(""));
}

void ExchangeDay::Start() {
  place_.emplace("Am\xE9lie's R&D (100%)", Exchange::Practice);
  clerk_.emplace(place_->Program());
  clerk_->WaitUntilPainted();
}

void ExchangeDay::ImportDay(const std::string& mode) {
  const std::string name = "import\\" + mode + "_05-01-2010.txt";
  const std::string side = mode == "payin" ? "S" : "B";
  place_->Write(name, Trade("ALDERCEM", side, "300", "O101", "03-01-2010") + "\r\n" +
                          Trade("BALTOIL", side, "200", "S102", "03-01-2010") + "\r\n");
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
