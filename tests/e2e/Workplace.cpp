#include "tests/e2e/Workplace.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace tallyrun::testing {

namespace {

// The program built beside this one.
std::string BuiltProgram(Exchange exchange) {
  std::string path(MAX_PATH, '\0');
  path.resize(GetModuleFileNameA(nullptr, path.data(), MAX_PATH));
  for (int i = 0; i < 3; ++i) path.resize(path.find_last_of('\\'));
  return path + (exchange == Exchange::Real ? "\\Tallyrun.exe" : "\\practice\\Tallyrun.exe");
}

void Copy(const std::string& from, const std::string& to) {
  EXPECT_TRUE(CopyFileA(from.c_str(), to.c_str(), FALSE))
      << from << " to " << to << ": error " << GetLastError();
}

}  // namespace

Workplace::Workplace(const std::string& name, Exchange exchange) : folder_(temp_ / name) {
  for (const std::string& folder :
       {folder_, File("program"), File("work"), File("import"), File("import\\corrected")}) {
    CreateDirectoryA(folder.c_str(), nullptr);
  }
  Copy(BuiltProgram(exchange), Program());
  CopySample("work\\BO.txt", "work\\BO.txt");
  CopySample("work\\ISIN.txt", "work\\ISIN.txt");
  Write("program\\Tallyrun.ini", Settings());
}

std::string Workplace::Settings() const {
  return "Broker ID : 410275\r\nClearing BOID : 7702310000000017\r\n"
         "Default BOID Format : 7702310000000000\r\nBackup Location : " +
         File("work\\");
}

void Workplace::Write(const std::string& name, const std::string& text) const {
  WriteBytes(File(name), text);
}

std::string Workplace::Read(const std::string& name) const { return ReadBytes(File(name)); }

bool Workplace::Has(const std::string& name) const {
  return GetFileAttributesA(File(name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void Workplace::Remove(const std::string& name) const {
  EXPECT_TRUE(DeleteFileA(File(name).c_str())) << name << ": error " << GetLastError();
}

std::vector<std::string> Workplace::List(const std::string& folder) const {
  return NamesIn(File(folder));
}

void Workplace::CopySample(const std::string& sample, const std::string& name) const {
  Copy(std::string(TALLYRUN_SAMPLES) + "\\" + sample, File(name));
}

std::string ReadBytes(const std::string& path) {
  HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(file, INVALID_HANDLE_VALUE) << path << ": error " << GetLastError();
  if (file == INVALID_HANDLE_VALUE) return {};
  std::string text(GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  EXPECT_TRUE(ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &read, nullptr));
  CloseHandle(file);
  return text;
}

void WriteBytes(const std::string& path, const std::string& text) {
  HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE) << path << ": error " << GetLastError();
  DWORD written = 0;
  EXPECT_TRUE(WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr));
  CloseHandle(file);
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
