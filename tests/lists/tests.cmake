list(APPEND portable_tests
  lists/BackupFilesTest.cpp
  lists/ListExchangeTest.cpp
  lists/ListRowsTest.cpp
)
list(APPEND windows_tests
  lists/frmListFilesTest.cpp
  lists/frmListTest.cpp
)
