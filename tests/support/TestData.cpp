#include "tests/support/TestData.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace tallyrun::testing {

std::string TestData(const std::string& name) {
  std::ifstream file(std::string(TALLYRUN_TEST_DATA) + "/" + name, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace tallyrun::testing
