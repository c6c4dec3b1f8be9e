// The error trap: runs a step and turns an error that escapes it into the one plain box that a
// clerk sees. Forms run every handler through it; a routine with an ending of its own catches
// before it does.
#pragma once

#include <exception>
#include <utility>

namespace tallyrun {

// The plain OK box of the trap: the error's description alone, titled with the program's name.
void ShowError(const std::exception& error);

// Runs `step`. False when an error escaped it and was shown.
template <class Step>
bool RunTrapped(Step&& step) {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const std::exception& error) {
    ShowError(error);
    return false;
  }
}

}  // namespace tallyrun
