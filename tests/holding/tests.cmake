list(APPEND portable_tests
  holding/CheckHoldingsTest.cpp
  holding/HoldingFileTest.cpp
  holding/HoldingSearchTest.cpp
)
list(APPEND windows_tests holding/frmHoldingMessageTest.cpp)
