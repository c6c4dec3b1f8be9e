#include "practice/clerk/Waiting.h"

#include <windows.h>

#include <chrono>

namespace tallyrun::testing {

bool Holds(const std::function<bool()>& condition, int seconds) {
  constexpr DWORD kBetweenLooks = 10;  // milliseconds
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    Sleep(kBetweenLooks);
  }
  return true;
}

void Await(const std::function<bool()>& condition, const std::string& failure) {
  if (!Holds(condition)) throw DriverError(failure);
}

}  // namespace tallyrun::testing
