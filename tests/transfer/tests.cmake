list(APPEND portable_tests
  transfer/FtpScriptTest.cpp
  transfer/SendEntriesTest.cpp
  transfer/ShellAndWaitTest.cpp
)
if(WIN32)
  list(APPEND windows_tests transfer/BatchRunTest.cpp)
  # Wine takes the path from its drive for the whole file system.
  set_source_files_properties(transfer/BatchRunTest.cpp PROPERTIES
    COMPILE_DEFINITIONS "TALLYRUN_FTP_CLIENT=\"Z:$<TARGET_FILE:ftp>\"")
endif()
