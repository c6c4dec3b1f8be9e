list(APPEND portable_tests ui/CommandLineTest.cpp)
list(APPEND windows_tests
  support/FormDriver.cpp
  ui/ControlsTest.cpp
  ui/FlexGridControlTest.cpp
  ui/FocusTest.cpp
  ui/FormTest.cpp
  ui/WindowsPlatformTest.cpp
)
