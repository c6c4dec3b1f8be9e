// Waiting for what another program does: conditions are asked again and again, never a fixed time.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace tallyrun::testing {

// What the clerk waited for did not come, with what was on the screen instead.
class DriverError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

inline constexpr int kPatienceSeconds = 60;

// Comes back once `condition` holds; true. False when it does not within `seconds`.
bool Holds(const std::function<bool()>& condition, int seconds = kPatienceSeconds);

// Comes back once `condition` holds; raises DriverError with `failure` when it does not.
void Await(const std::function<bool()>& condition, const std::string& failure);

}  // namespace tallyrun::testing
