list(APPEND portable_tests
  practice/FtpClientTest.cpp
  practice/ReplyReaderTest.cpp
)
