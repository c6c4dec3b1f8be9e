list(APPEND portable_tests
  lists/ListBackupsTest.cpp
  lists/ListExchangeTest.cpp
  lists/ListRowsTest.cpp
)
list(APPEND windows_tests
  lists/frmListFilesTest.cpp
  lists/frmListTest.cpp
)
