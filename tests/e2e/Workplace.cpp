#include "tests/e2e/Workplace.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace tallyrun::testing {

Workplace::Workplace(const std::string& program, const std::string& name) : folder_(temp_ / name) {
  for (const std::string& folder : {folder_, File("program"), File("work"), File("import")}) {
    CreateDirectoryA(folder.c_str(), nullptr);
  }
  const std::string built = TALLYRUN_BUILD "\\" + program;
  EXPECT_TRUE(CopyFileA(built.c_str(), File("program\\Tallyrun.exe").c_str(), FALSE))
      << built << ": " << GetLastError();
  for (const char* list : {"work\\BO.txt", "work\\ISIN.txt"}) {
    Write(list, ReadBytes(std::string(TALLYRUN_SAMPLES "\\") + list));
  }
  Write("program\\Tallyrun.ini", Settings());
}

std::string Workplace::Settings() const {
  return "Broker ID : 410275\r\nClearing BOID : 7702310000000017\r\n"
         "Default BOID Format : 7702310000000000\r\nBackup Location : " +
         File("work\\");
}

Box Notice(const std::string& title, const std::string& text) { return {title, text, {"OK"}}; }

void PrintTo(const Box& box, std::ostream* out) {
  *out << "\"" << box.title << "\": \"" << box.text << "\"";
  for (const std::string& button : box.buttons) *out << " [" << button << "]";
}

}  // namespace tallyrun::testing
