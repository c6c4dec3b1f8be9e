// While a box or system dialog is shown: which window it stands over, and that no form of the
// program can be used beneath it.
#pragma once

#include <windows.h>

#include <vector>

namespace tallyrun {

class BoxScope {
 public:
  // Raises ProgramEnding when the program is ending, as then nothing is shown any more.
  BoxScope();
  ~BoxScope();
  BoxScope(const BoxScope&) = delete;
  BoxScope& operator=(const BoxScope&) = delete;

  // The form in front, or null when none is shown. The box itself disables it.
  HWND Owner() const { return owner_; }

 private:
  HWND owner_;
  std::vector<HWND> disabled_;
};

}  // namespace tallyrun
