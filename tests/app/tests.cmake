list(APPEND windows_tests app/ResourceTest.cpp)
