list(APPEND portable_tests
  holding/CheckHoldingsTest.cpp
  holding/HoldingBalancesTest.cpp
  holding/HoldingFileTest.cpp
)
list(APPEND windows_tests holding/frmHoldingMessageTest.cpp)
