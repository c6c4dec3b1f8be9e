list(APPEND windows_tests settings/frmSettingsTest.cpp)
