list(APPEND portable_tests settings/SettingsEntryTest.cpp)
list(APPEND windows_tests settings/frmSettingsTest.cpp)
