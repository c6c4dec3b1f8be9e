// The demo's day: a Pay In from the trade file to a second send, a Pay Out, the master lists with
// backups and exchange, and both reports.
#pragma once

#include <vector>

#include "practice/clerk/Workday.h"

namespace tallyrun::testing {

struct DemoStep {
  const char* title;
  void (*work)(Workday& day);
};

extern const std::vector<DemoStep> kDemoSteps;

}  // namespace tallyrun::testing
