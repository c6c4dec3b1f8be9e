list(APPEND portable_tests
  core/grid/FlexGridTest.cpp
  core/grid/GridGeometryTest.cpp
  core/grid/GridRowsTest.cpp
  core/BusyScopeTest.cpp
  core/entry/RowChecksTest.cpp
  core/grid/SortGridTest.cpp
  core/grid/TildeTableTest.cpp
)
list(APPEND portable_tests core/files/FileTest.cpp)
list(APPEND portable_tests
  core/text/ConversionTest.cpp
  core/masterlists/LookupsTest.cpp
  core/masterlists/RecordListTest.cpp
  core/entry/SettingsTest.cpp
)
list(APPEND windows_tests core/text/ConversionSystemTest.cpp core/files/FileSystemTest.cpp)
