// generate FOLDER SEED TRADES ACCOUNTS SECURITIES HOLDINGS: writes the files of an invented day
// into an existing folder.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "bench/DayFiles.h"

namespace {

std::uint32_t Number(const char* text) {
  return static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

bool Write(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (file.fail()) std::fprintf(stderr, "generate: cannot write %s\n", path.c_str());
  return !file.fail();
}

}  // namespace

int main(int argc, char** argv) {
  using namespace tallyrun::bench;
  if (argc != 7 || Number(argv[4]) == 0 || Number(argv[5]) == 0) {
    std::fputs("usage: generate FOLDER SEED TRADES ACCOUNTS SECURITIES HOLDINGS\n", stderr);
    return 2;
  }
  const std::string folder = std::string(argv[1]) + "/";
  const DaySize size = {Number(argv[3]), Number(argv[4]), Number(argv[5]), Number(argv[6])};
  const DayFiles files(size, Number(argv[2]));
  const bool written = Write(folder + "BO.txt", files.BoList()) &&
                       Write(folder + "ISIN.txt", files.IsinList()) &&
                       Write(folder + "payin_05-01-2010.txt", files.TradeFile()) &&
                       Write(folder + "11DPA6UX.TXT", files.HoldingFile());
  return written ? 0 : 1;
}
