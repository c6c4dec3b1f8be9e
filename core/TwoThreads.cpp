#include "core/TwoThreads.h"

#include <atomic>
#include <future>
#include <system_error>

namespace tallyrun {
namespace {

// Below this many a thread takes longer to begin than the rows do.
constexpr std::size_t kManyRows = 5'000;

}  // namespace

void ForEachPiece(std::size_t count, std::size_t rows,
                  const std::function<void(std::size_t)>& work) {
  std::atomic<std::size_t> next = 0;
  const auto takePieces = [&] {
    try {
      for (std::size_t piece; (piece = next++) < count;) work(piece);
    } catch (...) {
      next = count;
      throw;
    }
  };
  // Its destructor waits for the other thread, also when this one raises something.
  std::future<void> other;
  if (rows >= kManyRows && count > 1) {
    try {
      other = std::async(std::launch::async, takePieces);
    } catch (const std::system_error&) {
      // Where the system gives no thread, this one does everything.
    }
  }
  takePieces();
  if (other.valid()) other.get();
}

}  // namespace tallyrun
