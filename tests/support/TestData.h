// The files under tests/data, read apart from the program's own file routines.
#pragma once

#include <string>

namespace tallyrun::testing {

// All bytes of "reports/pay-in.txt"; fails the test when there is no such file.
std::string TestData(const std::string& name);

}  // namespace tallyrun::testing
