list(APPEND portable_tests
  transfer/FtpScriptTest.cpp
  transfer/SendEntriesTest.cpp
  transfer/ShellAndWaitTest.cpp
)
