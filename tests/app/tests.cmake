list(APPEND portable_tests
  app/CellPasteTest.cpp app/CellRulesTest.cpp app/EntrySearchTest.cpp app/FillAutoFieldsTest.cpp
  app/MergeEqualEntriesTest.cpp app/TradeFileTest.cpp)
list(APPEND windows_tests
  app/LargeSheetTest.cpp app/ResourceTest.cpp app/frmMainCheckTest.cpp app/frmMainSendTest.cpp
  app/frmMainSheetTest.cpp app/frmMainTest.cpp)
