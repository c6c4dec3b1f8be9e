#include <gtest/gtest.h>
#include <thread>

#include "core/ReadAhead.h"
#include "core/RuntimeError.h"

namespace tallyrun {
namespace {

struct Part {
  int number = 0;
  bool isLast = false;

  bool IsLast() const { return isLast; }
};

TEST(ReadAheadTest, GivesEveryPartOnceAndInOrderWhoeverIsSlower) {
  for (const int count : {1, 2, 500}) {
    for (const int slowPart : {0, 3}) {
      SCOPED_TRACE(std::to_string(count) + " parts, " + std::to_string(slowPart));
      int read = 0;
      ReadAhead<Part> parts([&](Part& part) {
        if (slowPart == 0) std::this_thread::yield();
        part = {read, read + 1 == count};
        ++read;
      });
      int next = 0;
      for (const Part* part; (part = parts.Next()) != nullptr; ++next) {
        if (next == slowPart) std::this_thread::sleep_for(std::chrono::milliseconds(20));
        ASSERT_EQ(part->number, next) << "while it is in use";
      }
      EXPECT_EQ(next, count);
      EXPECT_EQ(parts.Next(), nullptr);
    }
  }
}

TEST(ReadAheadTest, RaisesAnErrorBehindThePartsThatWereRead) {
  for (const int failing : {0, 1, 7}) {
    SCOPED_TRACE(failing);
    int read = 0;
    ReadAhead<Part> parts([&](Part& part) {
      if (read == failing) throw RuntimeError(ErrorKind::TypeMismatch);
      part.number = read++;
    });
    for (int next = 0; next < failing; ++next) ASSERT_EQ(parts.Next()->number, next);
    EXPECT_THROW(parts.Next(), RuntimeError);
    EXPECT_EQ(parts.Next(), nullptr);
  }
}

TEST(ReadAheadTest, EndsWhereItIsLeft) {
  int read = 0;
  {
    ReadAhead<Part> parts([&](Part& part) { part.number = read++; });
    for (int next = 0; next < 3; ++next) ASSERT_EQ(parts.Next()->number, next);
  }
  EXPECT_LT(read, 10) << "as much as is read ahead";
}

}  // namespace
}  // namespace tallyrun
