// limit IN... -- OUT...: what no program can do without. Reads the files before the "--" once and
// writes new files of the sizes of those behind it (as FILE.limit, removed at the end), with plain
// reads and writes of a megabyte. Prints the seconds and the bytes.
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t kChunk = 1024 * 1024;

[[noreturn]] void Fail(const std::string& path) {
  std::perror(path.c_str());
  std::exit(1);
}

long long ReadOnce(const std::string& path, std::vector<char>& buffer) {
  const int file = open(path.c_str(), O_RDONLY);
  if (file < 0) Fail(path);
  long long bytes = 0;
  for (;;) {
    const ssize_t count = read(file, buffer.data(), buffer.size());
    if (count < 0) Fail(path);
    if (count == 0) break;
    bytes += count;
  }
  close(file);
  return bytes;
}

long long WriteOnce(const std::string& path, long long bytes, const std::vector<char>& buffer) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  if (file < 0) Fail(path);
  for (long long left = bytes; left > 0;) {
    const auto wanted = static_cast<std::size_t>(std::min<long long>(left, kChunk));
    const ssize_t count = write(file, buffer.data(), wanted);
    if (count < 0) Fail(path);
    left -= count;
  }
  close(file);
  return bytes;
}

long long LengthOf(const std::string& path) {
  struct stat facts;
  if (stat(path.c_str(), &facts) != 0) Fail(path);
  return facts.st_size;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> inputs;
  std::vector<std::pair<std::string, long long>> outputs;
  bool isOutput = false;
  for (int at = 1; at < argc; ++at) {
    if (std::strcmp(argv[at], "--") == 0) {
      isOutput = true;
    } else if (isOutput) {
      outputs.emplace_back(std::string(argv[at]) + ".limit", LengthOf(argv[at]));
    } else {
      inputs.emplace_back(argv[at]);
    }
  }
  std::vector<char> buffer(kChunk, 'x');
  long long bytes = 0;
  const auto begin = std::chrono::steady_clock::now();
  for (const std::string& path : inputs) bytes += ReadOnce(path, buffer);
  for (const auto& [path, length] : outputs) bytes += WriteOnce(path, length, buffer);
  const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin;
  for (const auto& output : outputs) unlink(output.first.c_str());
  std::printf("limit %.6f\nbytes %lld\n", spent.count(), bytes);
}
