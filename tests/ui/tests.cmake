list(APPEND portable_tests ui/CommandLineTest.cpp)
list(APPEND windows_tests
  support/FormDriver.cpp
  ui/FormTest.cpp
)
