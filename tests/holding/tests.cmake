list(APPEND portable_tests
  holding/CheckHoldingsTest.cpp
  holding/HoldingBalancesTest.cpp
)
