#include <atomic>
#include <gtest/gtest.h>
#include <vector>

#include "core/RuntimeError.h"
#include "core/TwoThreads.h"

namespace tallyrun {
namespace {

TEST(TwoThreadsTest, DoEveryPieceOnceAndRaiseWhatAnyRaises) {
  for (const std::size_t rows : {10u, 1'000'000u}) {
    SCOPED_TRACE(rows);
    std::vector<int> done(1000);
    ForEachPiece(done.size(), rows, [&](std::size_t piece) { ++done[piece]; });
    EXPECT_EQ(done, std::vector<int>(1000, 1));
    std::atomic<int> begun = 0;
    EXPECT_THROW(ForEachPiece(1000, rows,
                              [&](std::size_t piece) {
                                ++begun;
                                if (piece == 500) throw RuntimeError(ErrorKind::TypeMismatch);
                              }),
                 RuntimeError);
    EXPECT_GE(begun, 501);
    ForEachPiece(0, rows, [](std::size_t) { FAIL(); });
  }
}

}  // namespace
}  // namespace tallyrun
