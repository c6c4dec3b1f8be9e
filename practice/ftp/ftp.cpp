// ftp.exe -s:SCRIPT: stands in for the system's command-line client on machines that have none.
#include <fstream>
#include <iostream>
#include <string>

#include "practice/ftp/FtpClient.h"

int main(int count, char** arguments) {
  const std::string option = count == 2 ? arguments[1] : "";
  std::ifstream script;
  if (option.starts_with("-s:")) script.open(option.substr(3), std::ios::binary);
  if (!script.is_open()) {
    std::cout << "Usage: ftp -s:filename" << std::endl;
    return 1;
  }
  WSADATA winsock;
  if (WSAStartup(MAKEWORD(2, 2), &winsock) != 0) return 1;
  tallyrun::practice::FtpClient(script).Run();
  WSACleanup();
}
