list(APPEND portable_tests lists/ListExchangeTest.cpp)
list(APPEND windows_tests lists/frmListFilesTest.cpp lists/frmListTest.cpp)
