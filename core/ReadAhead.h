// Goes through a file part by part, and reads the next ones on a second thread while one is used.
// That thread ends with the object, so that outside of a step there is the GUI thread alone.
#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace tallyrun {

// A Part says by IsLast() whether there are more behind it.
template <class Part>
class ReadAhead {
 public:
  // `read` puts the next part of the file in the place of an older one. Nothing that it looks at
  // may be changed for as long as this lives. The first part is read here and now.
  explicit ReadAhead(std::function<void(Part&)> read) : read_(std::move(read)) { ReadNext(); }
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;
  ~ReadAhead();

  // The next part, good until this is asked again; null when there are no more. Raises what its
  // reading raised.
  const Part* Next();

 private:
  // A thread that sleeps is not awake at once: as many as that don't let the other one wait for it.
  static constexpr std::size_t kParts = 4;

  // On cache lines of its own: one thread writes a part while the other reads the one beside it.
  struct alignas(64) Place {
    Part part;
  };

  bool ReadNext();
  void ReadOthers();

  const std::function<void(Part&)> read_;
  std::array<Place, kParts> places_;  // part n stands in place n % kParts
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t readParts_ = 0;
  std::size_t givenParts_ = 0;  // the last of them is in use
  bool isOver_ = false;         // no more parts are read
  std::exception_ptr error_;    // of the reading behind those that were
  std::thread thread_;
};

template <class Part>
ReadAhead<Part>::~ReadAhead() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

template <class Part>
const Part* ReadAhead<Part>::Next() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return givenParts_ < readParts_ || isOver_; });
  if (givenParts_ == readParts_) {
    if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
    return nullptr;
  }
  const Part& part = places_[givenParts_++ % kParts].part;
  if (!isOver_ && !thread_.joinable()) thread_ = std::thread(&ReadAhead::ReadOthers, this);
  lock.unlock();
  changed_.notify_one();
  return &part;
}

// False when it was the last.
template <class Part>
bool ReadAhead<Part>::ReadNext() {
  Part& part = places_[readParts_ % kParts].part;
  std::exception_ptr error;
  try {
    read_(part);
  } catch (...) {
    error = std::current_exception();
  }
  const std::lock_guard lock(mutex_);
  error_ = error;
  readParts_ += error ? 0 : 1;
  isOver_ = isOver_ || error || part.IsLast();
  changed_.notify_one();
  return !isOver_;
}

template <class Part>
void ReadAhead<Part>::ReadOthers() {
  do {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return readParts_ - givenParts_ + 1 < kParts || isOver_; });
    if (isOver_) return;
  } while (ReadNext());
}

}  // namespace tallyrun
