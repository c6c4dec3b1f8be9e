list(APPEND portable_tests core/GridRowsTest.cpp core/SortGridTest.cpp)
