list(APPEND portable_tests
  holding/CheckHoldingsTest.cpp
  holding/HoldingFileTest.cpp
  holding/HoldingSearchTest.cpp
)
