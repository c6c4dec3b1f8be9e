list(APPEND portable_tests ui/CommandLineTest.cpp)
list(APPEND windows_tests
  support/FormDriver.cpp
  ui/ControlTest.cpp
  ui/FlexGridControlTest.cpp
  ui/FormTest.cpp
  ui/WindowsPlatformTest.cpp
)
