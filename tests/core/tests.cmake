list(APPEND portable_tests
  core/ColumnFitterTest.cpp
  core/FlexGridTest.cpp
  core/GridGeometryTest.cpp
  core/GridRowsTest.cpp
  core/RadixSortTest.cpp
  core/ReadAheadTest.cpp
  core/RowChecksTest.cpp
  core/SeparatorScanTest.cpp
  core/SortGridTest.cpp
  core/TextTableTest.cpp
  core/TildeTableTest.cpp
  core/TwoThreadsTest.cpp
)
list(APPEND portable_tests core/FileTest.cpp)
list(APPEND portable_tests
  core/ConversionTest.cpp
  core/LookupsTest.cpp
  core/RecordListTest.cpp
  core/SettingsTest.cpp
)
list(APPEND windows_tests core/ConversionSystemTest.cpp core/FileSystemTest.cpp)
