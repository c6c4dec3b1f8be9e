#include "tests/e2e/Workplace.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace tallyrun::testing {

Workplace::Workplace(const std::string& name, Exchange exchange) : folder_(temp_ / name) {
  for (const std::string& folder : {folder_, File("program"), File("work"), File("import")}) {
    CreateDirectoryA(folder.c_str(), nullptr);
  }
  std::string built(MAX_PATH, '\0');
  built.resize(GetModuleFileNameA(nullptr, built.data(), MAX_PATH));
  for (int i = 0; i < 3; ++i) built.resize(built.find_last_of('\\'));
  built += exchange == Exchange::Real ? "\\Tallyrun.exe" : "\\practice\\Tallyrun.exe";
  EXPECT_TRUE(CopyFileA(built.c_str(), Program().c_str(), FALSE)) << GetLastError();
  for (const char* list : {"work\\BO.txt", "work\\ISIN.txt"}) {
    Write(list, ReadBytes(std::string(TALLYRUN_SAMPLES) + "\\" + list));
  }
  Write("program\\Tallyrun.ini", Settings());
}

std::string Workplace::Settings() const {
  return "Broker ID : 410275\r\nClearing BOID : 7702310000000017\r\n"
         "Default BOID Format : 7702310000000000\r\nBackup Location : " +
         File("work\\");
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  WIN32_FIND_DATAA found;
  HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    if (found.cFileName[0] != '.') names.emplace_back(found.cFileName);
  } while (FindNextFileA(search, &found));
  FindClose(search);
  std::sort(names.begin(), names.end());
  return names;
}

std::string ExchangeFolder() {
  const char* folder = std::getenv("TALLYRUN_EXCHANGE");
  EXPECT_NE(folder, nullptr) << "run by tests/e2e/run.sh";
  return std::string(folder == nullptr ? "" : folder) + "\\exchange";
}

}  // namespace tallyrun::testing
