// ftp.exe: stands in for the system's command-line client on machines that have none. Takes
// -s:FILE, a script of commands; without it the commands come from the keyboard.
#include <fstream>
#include <iostream>
#include <string>

#include "practice/ftp/FtpClient.h"

int main(int count, char** arguments) {
  const std::string scriptOption = "-s:";
  std::string scriptName;
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    if (argument.rfind(scriptOption, 0) != 0) {
      std::cout << "Usage: ftp [-s:filename]" << std::endl;
      return 1;
    }
    scriptName = argument.substr(scriptOption.size());
  }
  const auto network = tallyrun::practice::MakeWinsockNetwork();
  tallyrun::practice::FtpClient client(*network, std::cout);
  if (scriptName.empty()) {
    client.Run(std::cin);
    return 0;
  }
  std::ifstream script(scriptName, std::ios::binary);
  if (!script) {
    std::cout << "Error opening script file " << scriptName << "." << std::endl;
    return 1;
  }
  client.Run(script);
  return 0;
}
