// A clerk's machine for one test: a program folder with a copy of the real program and its
// settings, and a working folder with the lists of the samples. Both lie in a folder of any name,
// gone with the test.
#pragma once

#include <string>
#include <vector>

#include "tests/support/TempFolder.h"

namespace tallyrun::testing {

enum class Exchange { Real, Practice };

class Workplace {
 public:
  // `name` may hold blanks and any letter of the system's code page.
  explicit Workplace(const std::string& name = "B\xFCro, 1. Stock",
                     Exchange exchange = Exchange::Real);

  std::string Program() const { return File("program\\Tallyrun.exe"); }
  // Full paths of what lies in the folder of the workplace, such as "work\\BO.txt".
  std::string File(const std::string& name) const { return folder_ + "\\" + name; }

  void Write(const std::string& name, const std::string& text) const {
    WriteBytes(File(name), text);
  }
  std::string Read(const std::string& name) const { return ReadBytes(File(name)); }

  // What the settings file says at first.
  std::string Settings() const;

 private:
  TempFolder temp_;
  std::string folder_;
};

// The names in a folder, in order.
std::vector<std::string> NamesIn(const std::string& folder);

// The folder of the practice exchange that runs beside the tests, without a backslash at the end.
std::string ExchangeFolder();

}  // namespace tallyrun::testing
