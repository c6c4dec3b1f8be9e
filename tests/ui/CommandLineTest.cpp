// Quoting of what is started.
#include <gtest/gtest.h>

#include "ui/CommandLine.h"

namespace tallyrun {
namespace {

TEST(CommandLineTest, QuotesProgramsAndRunsBatchFilesThroughTheInterpreter) {
  const std::string cmd = "C:\\Sys\\cmd.exe";
  const std::tuple<const char*, bool, const char*> cases[] = {
      {"notepad \"C:\\My Work\\a.txt\"", false, "\"notepad\" \"C:\\My Work\\a.txt\""},
      {"notepad", false, "\"notepad\""},
      {"\"C:\\My Tools\\x.exe\" -v", false, "\"C:\\My Tools\\x.exe\" -v"},
      {"C:\\My Tools\\x.exe", true, "\"C:\\My Tools\\x.exe\""},
      {"C:\\R & D\\ftp2KTX.bat", true,
       "\"C:\\Sys\\cmd.exe\" /d /s /c \"\"C:\\R & D\\ftp2KTX.bat\"\""},
      {"\"C:\\R & D\\a.CMD\" one \"two\"", false,
       "\"C:\\Sys\\cmd.exe\" /d /s /c \"\"C:\\R & D\\a.CMD\" one \"two\"\""},
      {"run.bat one", false, "\"C:\\Sys\\cmd.exe\" /d /s /c \"\"run.bat\" one\""},
  };
  for (const auto& [given, namesFile, run] : cases) {
    EXPECT_EQ(CommandLineToRun(given, namesFile, cmd), run);
  }
}

}  // namespace
}  // namespace tallyrun
