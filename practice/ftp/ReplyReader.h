// Reads an FTP server's replies from a stream, one-line and multi-line ones. Knows nothing of
// commands or of what is shown.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "practice/ftp/Network.h"

namespace tallyrun::practice {

struct Reply {
  int code = 0;                    // 100..599; 0 when the connection ended instead
  std::vector<std::string> lines;  // as received, without line ends

  bool IsPreliminary() const { return code / 100 == 1; }
  bool IsCompletion() const { return code / 100 == 2; }
  bool IsIntermediate() const { return code / 100 == 3; }
};

class ReplyReader {
 public:
  // The stream must outlive the reader.
  explicit ReplyReader(Stream& stream) : stream_(stream) {}

  // Waits for the next whole reply. One that the connection's end cuts short has code 0 and the
  // lines that came.
  Reply Read();

 private:
  std::optional<std::string> ReadLine();

  Stream& stream_;
  std::string pending_;  // received, not yet given out
};

// The port in a reply to PASV ("227 Entering Passive Mode (h1,h2,h3,h4,p1,p2)"); none when the
// reply names no valid one.
std::optional<int> PassivePort(const Reply& reply);

}  // namespace tallyrun::practice
