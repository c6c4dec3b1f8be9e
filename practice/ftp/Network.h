// What the ftp stand-in needs from the network: streams of bytes to a host and port.
// Network_windows.cpp has them.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tallyrun::practice {

// One open connection, closed when the object goes.
class Stream {
 public:
  virtual ~Stream() = default;
  // Sends all of it; false when the other side is gone.
  virtual bool Send(std::string_view bytes) = 0;
  // Waits for the next bytes, as long as it takes; empty once the connection has ended.
  virtual std::string Receive() = 0;
};

struct ConnectResult {
  std::unique_ptr<Stream> stream;  // null when it failed
  std::string failure;             // then one line for the user
};

class Network {
 public:
  virtual ~Network() = default;
  virtual ConnectResult Connect(const std::string& host, int port) = 0;
};

// Over Winsock. Takes care of Winsock's own start and end.
std::unique_ptr<Network> MakeWinsockNetwork();

}  // namespace tallyrun::practice
