// What a step raises, for tests that expect an error.
#pragma once

#include <string>

#include "core/RuntimeError.h"

namespace tallyrun::testing {

// The error's text; empty when the step raises none.
template <class Step>
std::string ErrorOf(Step step) {
  try {
    step();
  } catch (const RuntimeError& error) {
    return error.what();
  }
  return "";
}

}  // namespace tallyrun::testing
