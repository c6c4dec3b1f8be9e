if(WIN32)
  add_test(NAME windows.PracticeExchange
    COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/practice/exchange_test.py
      ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:ftp>)
else()
  add_test(NAME native.Samples
    COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/practice/samples_test.py)
endif()
