list(APPEND portable_tests reports/InstructionReportTest.cpp)
