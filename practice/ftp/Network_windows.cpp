// clang-format off: Winsock 2 has to come before windows.h
#include <winsock2.h>
#include <ws2tcpip.h>
// clang-format on

#include <utility>

#include "practice/ftp/Network.h"

namespace tallyrun::practice {
namespace {

class SocketStream : public Stream {
 public:
  explicit SocketStream(SOCKET socket) : socket_(socket) {}
  SocketStream(const SocketStream&) = delete;
  SocketStream& operator=(const SocketStream&) = delete;
  ~SocketStream() override {
    shutdown(socket_, SD_SEND);
    closesocket(socket_);
  }

  bool Send(std::string_view bytes) override {
    while (!bytes.empty()) {
      const int sent = send(socket_, bytes.data(), static_cast<int>(bytes.size()), 0);
      if (sent <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
  }

  std::string Receive() override {
    char buffer[16384];
    const int size = recv(socket_, buffer, sizeof buffer, 0);
    return size > 0 ? std::string(buffer, static_cast<std::size_t>(size)) : std::string();
  }

 private:
  const SOCKET socket_;
};

std::string ReasonFor(int error) {
  switch (error) {
    case WSAECONNREFUSED:
      return "Connection refused";
    case WSAETIMEDOUT:
      return "Connection timed out";
    case WSAENETUNREACH:
      return "Network is unreachable";
    case WSAEHOSTUNREACH:
      return "No route to host";
    default:
      return "Unknown error number " + std::to_string(error);
  }
}

class WinsockNetwork : public Network {
 public:
  WinsockNetwork() {
    WSADATA data;
    started_ = WSAStartup(MAKEWORD(2, 2), &data) == 0;
  }
  WinsockNetwork(const WinsockNetwork&) = delete;
  WinsockNetwork& operator=(const WinsockNetwork&) = delete;
  ~WinsockNetwork() override {
    if (started_) WSACleanup();
  }

  ConnectResult Connect(const std::string& host, int port) override {
    addrinfo hints = {};
    hints.ai_family = AF_INET;  // PASV names IPv4 addresses only
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) {
      return {nullptr, "Unknown host " + host + "."};
    }
    int error = 0;
    SOCKET connected = INVALID_SOCKET;
    for (const addrinfo* at = found; at && connected == INVALID_SOCKET; at = at->ai_next) {
      const SOCKET candidate = socket(at->ai_family, at->ai_socktype, at->ai_protocol);
      if (candidate == INVALID_SOCKET) {
        error = WSAGetLastError();
      } else if (connect(candidate, at->ai_addr, static_cast<int>(at->ai_addrlen)) != 0) {
        error = WSAGetLastError();
        closesocket(candidate);
      } else {
        connected = candidate;
      }
    }
    freeaddrinfo(found);
    if (connected == INVALID_SOCKET) return {nullptr, "> ftp: connect :" + ReasonFor(error)};
    return {std::make_unique<SocketStream>(connected), {}};
  }

 private:
  bool started_;
};

}  // namespace

std::unique_ptr<Network> MakeWinsockNetwork() { return std::make_unique<WinsockNetwork>(); }

}  // namespace tallyrun::practice
