list(APPEND portable_tests reports/InstructionReportTest.cpp)
# Wine takes the path from its drive for the whole file system.
set_source_files_properties(reports/InstructionReportTest.cpp PROPERTIES
  COMPILE_DEFINITIONS "TALLYRUN_TEST_DATA=\"$<$<BOOL:${WIN32}>:Z:>${CMAKE_CURRENT_SOURCE_DIR}/data\"")
