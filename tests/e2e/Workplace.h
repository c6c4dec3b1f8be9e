// A clerk's machine for one test: a program folder with a copy of the real program and its
// settings, and a working folder with the lists of the samples. Both lie in a folder of any name,
// gone with the test.
#pragma once

#include <string>

#include "practice/clerk/ClerkDriver.h"
#include "tests/support/TempFolder.h"

namespace tallyrun::testing {

// Where the programs lie in the build.
inline constexpr char kShipped[] = "Tallyrun.exe";
inline constexpr char kPractice[] = "practice\\Tallyrun.exe";

class Workplace {
 public:
  // `name` may hold blanks and any letter of the system's code page.
  Workplace(const std::string& program, const std::string& name);

  const std::string& Folder() const { return folder_; }
  // Full paths of what lies in the folder, such as "work\\BO.txt".
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

// What a box with the one button says.
Box Notice(const std::string& title, const std::string& text);

void PrintTo(const Box& box, std::ostream* out);

}  // namespace tallyrun::testing
