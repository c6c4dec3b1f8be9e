#include "practice/ftp/Connection.h"

#include <ws2tcpip.h>

#include <stdexcept>

namespace tallyrun::practice {

Connection::Connection(const std::string& host, const std::string& port) {
  addrinfo hints = {};
  hints.ai_family = AF_INET;  // PASV names IPv4 addresses only
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), port.c_str(), &hints, &found) != 0) {
    throw std::runtime_error("Unknown host " + host + ".");
  }
  socket_ = socket(found->ai_family, found->ai_socktype, found->ai_protocol);
  const int failed = connect(socket_, found->ai_addr, static_cast<int>(found->ai_addrlen));
  const int error = WSAGetLastError();
  freeaddrinfo(found);
  if (failed == 0) return;
  closesocket(socket_);
  throw std::runtime_error("> ftp: connect :" + (error == WSAECONNREFUSED
                                                     ? "Connection refused"
                                                     : "Error number " + std::to_string(error)));
}

Connection::~Connection() {
  shutdown(socket_, SD_SEND);
  closesocket(socket_);
}

bool Connection::Send(const std::string& bytes) {
  for (std::size_t done = 0; done < bytes.size();) {
    const int sent = send(socket_, &bytes[done], static_cast<int>(bytes.size() - done), 0);
    if (sent <= 0) return false;
    done += static_cast<std::size_t>(sent);
  }
  return true;
}

std::string Connection::Receive() {
  std::string bytes(65536, '\0');
  const int size = recv(socket_, bytes.data(), static_cast<int>(bytes.size()), 0);
  bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return bytes;
}

}  // namespace tallyrun::practice
