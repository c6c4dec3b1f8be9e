#include "practice/ftp/ReplyReader.h"

#include <algorithm>
#include <charconv>

namespace tallyrun::practice {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The code that a line begins with; 0 when it has none.
int CodeOf(const std::string& line) {
  if (line.size() < 3 || !std::all_of(line.begin(), line.begin() + 3, IsDigit)) return 0;
  int code = 0;
  std::from_chars(line.data(), line.data() + 3, code);
  return code >= 100 && code < 600 ? code : 0;
}

bool IsContinued(const std::string& line) { return line.size() > 3 && line[3] == '-'; }

}  // namespace

Reply ReplyReader::Read() {
  Reply reply;
  int first = 0;
  while (std::optional<std::string> line = ReadLine()) {
    reply.lines.push_back(*line);
    const int code = CodeOf(*line);
    if (first == 0) first = code;
    // Inside a multi-line reply only the first line's code followed by no hyphen ends it.
    if (code != 0 && code == first && !IsContinued(*line)) {
      reply.code = code;
      return reply;
    }
  }
  return reply;
}

std::optional<std::string> ReplyReader::ReadLine() {
  std::size_t end = 0;
  while ((end = pending_.find('\n', end)) == std::string::npos) {
    end = pending_.size();
    const std::string more = stream_.Receive();
    if (more.empty()) return std::nullopt;
    pending_ += more;
  }
  std::string line = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

std::optional<int> PassivePort(const Reply& reply) {
  if (reply.code != 227) return std::nullopt;
  const std::string& line = reply.lines.back();
  const char* at = line.data() + 3;
  const char* const end = line.data() + line.size();
  at = std::find_if(at, end, IsDigit);
  int numbers[6] = {};
  for (int& number : numbers) {
    if (&number != numbers) {
      if (at == end || *at != ',') return std::nullopt;
      ++at;
    }
    const auto result = std::from_chars(at, end, number);
    if (result.ec != std::errc() || number < 0 || number > 255) return std::nullopt;
    at = result.ptr;
  }
  const int port = numbers[4] * 256 + numbers[5];
  return port > 0 ? std::optional<int>(port) : std::nullopt;
}

}  // namespace tallyrun::practice
