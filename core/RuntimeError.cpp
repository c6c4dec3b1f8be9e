#include "core/RuntimeError.h"

#include <new>
#include <stdexcept>

namespace tallyrun {

const char* DescriptionOf(ErrorKind kind) noexcept {
  switch (kind) {
    case ErrorKind::Overflow:
      return "Overflow";
    case ErrorKind::OutOfMemory:
      return "Out of memory";
    case ErrorKind::SubscriptOutOfRange:
      return "Subscript out of range";
    case ErrorKind::TypeMismatch:
      return "Type mismatch";
    case ErrorKind::FileNotFound:
      return "File not found";
    case ErrorKind::DiskFull:
      return "Disk full";
    case ErrorKind::PermissionDenied:
      return "Permission denied";
    case ErrorKind::PathFileAccess:
      return "Path/File access error";
    case ErrorKind::PathNotFound:
      return "Path not found";
    case ErrorKind::DeviceIo:
      return "Device I/O error";
    case ErrorKind::InvalidCall:
      return "Invalid procedure call or argument";
  }
  return "Invalid procedure call or argument";
}

const char* DescriptionOf(const std::exception& error) noexcept {
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
      dynamic_cast<const std::length_error*>(&error) != nullptr) {
    return DescriptionOf(ErrorKind::OutOfMemory);
  }
  return error.what();
}

}  // namespace tallyrun
