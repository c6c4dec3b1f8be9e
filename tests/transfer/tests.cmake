list(APPEND portable_tests
  transfer/EntrySendTest.cpp
  transfer/ShellAndWaitTest.cpp
)
