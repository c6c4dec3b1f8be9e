// The edge of a window procedure: no exception goes past it into the system's code. Errors show
// as the trap shows them; the end of the program has unwound far enough when it comes here.
#pragma once

#include <windows.h>

#include <utility>

#include "core/ErrorTrap.h"

namespace tallyrun {

// What `step` answers to the message, or 0 when something escaped it.
template <class Step>
LRESULT RunGuarded(Step&& step) noexcept {
  LRESULT answer = 0;
  try {
    RunTrapped([&] { answer = std::forward<Step>(step)(); });
  } catch (...) {
    answer = 0;
  }
  return answer;
}

}  // namespace tallyrun
