// One TCP connection of the ftp stand-in, over Winsock; closed when the object goes.
#pragma once

// clang-format off: Winsock 2 has to come before windows.h
#include <winsock2.h>
// clang-format on

#include <string>

namespace tallyrun::practice {

class Connection {
 public:
  // Connects, or raises std::runtime_error with the line that the system's client then writes.
  Connection(const std::string& host, const std::string& port);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // Sends all of it; false when the other side is gone.
  bool Send(const std::string& bytes);
  // Waits for the next bytes, as long as it takes; empty once the connection has ended.
  std::string Receive();

 private:
  SOCKET socket_ = INVALID_SOCKET;
};

}  // namespace tallyrun::practice
