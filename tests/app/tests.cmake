list(APPEND windows_tests app/ResourceTest.cpp)
list(APPEND portable_tests
  support/EntrySheetFixture.cpp
  app/FillAutoFieldsTest.cpp
  app/CellPasteTest.cpp
  app/CellRulesTest.cpp
  app/EntrySearchTest.cpp
  app/MergeEqualEntriesTest.cpp
  app/TradeFileTest.cpp
)
list(APPEND windows_tests
  app/LargeSheetTest.cpp
  app/frmMainCheckTest.cpp
  app/frmMainSendTest.cpp
  app/frmMainSheetTest.cpp
  app/frmMainTest.cpp
)
