// The failures that a handler's trap shows to the clerk. Each kind has one fixed description;
// no other text ever reaches a trap's box.
#pragma once

#include <exception>

namespace tallyrun {

enum class ErrorKind {
  Overflow,
  OutOfMemory,
  SubscriptOutOfRange,
  TypeMismatch,
  FileNotFound,
  DiskFull,
  PermissionDenied,
  PathFileAccess,
  PathNotFound,
  DeviceIo,
  InvalidCall,
};

// The words a clerk reads for `kind`, such as "Subscript out of range".
const char* DescriptionOf(ErrorKind kind) noexcept;

class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(ErrorKind kind) noexcept : kind_(kind) {}
  ErrorKind Kind() const noexcept { return kind_; }
  const char* what() const noexcept override { return DescriptionOf(kind_); }

 private:
  ErrorKind kind_;
};

// The description a trap shows for `error`: a RuntimeError's own, "Out of memory" for a failed
// allocation, and for anything else that the library raised its what().
const char* DescriptionOf(const std::exception& error) noexcept;

}  // namespace tallyrun
