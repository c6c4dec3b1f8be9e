// A clerk's machine for one test: a program folder with a copy of the real program and its
// settings, and a working folder with the lists of the samples. Both lie in a folder of any name,
// gone with the test. Files are read and written as bytes, apart from the program's own routines.
#pragma once

#include <string>
#include <vector>

#include "tests/support/TempFolder.h"

namespace tallyrun::testing {

enum class Exchange { Real, Practice };

class Workplace {
 public:
  // `name` may hold blanks and any letter of the system's code page.
  explicit Workplace(const std::string& name = "day", Exchange exchange = Exchange::Real);

  std::string Program() const { return folder_ + "\\program\\Tallyrun.exe"; }
  // Full paths of what lies in the folder of the workplace, such as "work\\BO.txt".
  std::string File(const std::string& name) const { return folder_ + "\\" + name; }

  void Write(const std::string& name, const std::string& text) const;
  std::string Read(const std::string& name) const;
  bool Has(const std::string& name) const;
  void Remove(const std::string& name) const;
  // The names in one of its folders.
  std::vector<std::string> List(const std::string& folder) const;
  // Copies a file of the samples.
  void CopySample(const std::string& sample, const std::string& name) const;

  // What the settings file says at first.
  std::string Settings() const;

 private:
  TempFolder temp_;
  std::string folder_;
};

// A file's bytes; fails the test when it can't be read.
std::string ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, const std::string& text);
std::vector<std::string> NamesIn(const std::string& folder);

// The folder of the practice exchange that runs beside the tests, without a backslash at the end.
std::string ExchangeFolder();

}  // namespace tallyrun::testing
