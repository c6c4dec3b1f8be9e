list(APPEND windows_tests
  ui/FormTest.cpp
)
