#include <functional>
#include <gtest/gtest.h>

#include "core/Conversion.h"
#include "core/RuntimeError.h"
#include "tests/support/RecordingPlatform.h"

namespace tallyrun {
namespace {

ErrorKind KindRaisedBy(const std::function<void()>& step) {
  try {
    step();
  } catch (const RuntimeError& error) {
    return error.Kind();
  }
  ADD_FAILURE() << "no error was raised";
  return ErrorKind::InvalidCall;
}

TEST(ConversionTest, TrimTakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta\r"), "\ta\r");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(ConversionTest, LowerCaseFoldsTheWholeCodePage) {
  EXPECT_EQ(ToLower("AZ az [`{@"), "az az [`{@");
  EXPECT_EQ(ToLower("\xC0\xDE\xD7\xDF\xF7\x8A\x8C\x8E\x9F\x80"),
            "\xE0\xFE\xD7\xDF\xF7\x9A\x9C\x9E\xFF\x80");
  EXPECT_EQ(ToLower(std::string_view("A\0B", 3)), std::string_view("a\0b", 3));
}

TEST(ConversionTest, NumbersAreReadInEveryAcceptedForm) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"0", 0},
      {"1500", 1500},
      {"1,500", 1500},
      {"1,2,3.5", 123.5},
      {"1,,2", 12},
      {"  7\t", 7},
      {"7\r", 7},
      {"7 \r\r", 7},
      {"-7", -7},
      {"+7", 7},
      {"7-", -7},
      {"7+", 7},
      {"- 7", -7},
      {"7 -", -7},
      {"(7)", -7},
      {"( 7 )", -7},
      {"$7", 7},
      {"-$7", -7},
      {"$-7", -7},
      {"$ 7", 7},
      {"($7.50)", -7.5},
      {".5", 0.5},
      {"5.", 5},
      {"-.5", -0.5},
      {"1e3", 1000},
      {"1E+3", 1000},
      {"1.5e-1", 0.15},
      {"1,0e2", 1000},
      {"&H1F", 31},
      {"&hff", 255},
      {"&O17", 15},
      {"1e-400", 0},
      {"0e9999999999", 0},
      {"12345678901234567890", 12345678901234567890.0},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(IsNumeric(c.text)) << c.text;
    EXPECT_DOUBLE_EQ(ToDouble(c.text), c.value) << c.text;
  }
}

TEST(ConversionTest, AnythingElseIsNoNumber) {
  for (const char* text :
       {"",    " ",     "\r",    ".",   "-",   "$",    "()",    "15a",   "a15", "1 5",
        "1-5", "-5-",   "--5",   "+5-", "(5",  "5)",   "(-5)",  "((5))", "$$5", ",5",
        ".,5", "1.2.3", "1.5,0", "5e",  "e5",  "5e+",  "5e1.5", "&H",    "&HG", "-&H5",
        "&O8", "&17",   "&",     "nan", "inf", "0x10", "1d3",   "\2405", "5\n5"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_EQ(KindRaisedBy([&] { ToDouble(text); }), ErrorKind::TypeMismatch) << text;
  }
}

TEST(ConversionTest, NumberPastADoubleOverflowsAndIsNotNumeric) {
  for (const char* text : {"1e400", "-1e309", "1e99999999999999999999", "&H10000000000000000"}) {
    EXPECT_EQ(KindRaisedBy([&] { ToDouble(text); }), ErrorKind::Overflow) << text;
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
  EXPECT_EQ(ToDouble(std::string(400, '0') + "1e0"), 1);
  EXPECT_EQ(ToDouble("1" + std::string(400, '0') + "e-400"), 1);
  EXPECT_EQ(ToDouble("1e-99999999999999999999"), 0);
}

TEST(ConversionTest, WholeNumbersRoundHalfToEvenAndStayIn32Bits) {
  const struct {
    const char* text;
    std::int32_t value;
  } cases[] = {
      {"0.5", 0},
      {"1.5", 2},
      {"2.5", 2},
      {"-0.5", 0},
      {"-1.5", -2},
      {"2.51", 3},
      {"1,000", 1000},
      {"2147483647.4", 2147483647},
      {"-2147483648.5", -2147483647 - 1},
  };
  for (const auto& c : cases) EXPECT_EQ(ToInt32(c.text), c.value) << c.text;
  for (const char* text : {"2147483647.5", "-2147483648.6", "1e20", "&HFFFFFFFF"}) {
    EXPECT_EQ(KindRaisedBy([&] { ToInt32(text); }), ErrorKind::Overflow) << text;
  }
  EXPECT_EQ(KindRaisedBy([] { ToInt32("x"); }), ErrorKind::TypeMismatch);
}

TEST(ConversionTest, DatesAreReadDayFirst) {
  const struct {
    const char* text;
    Date date;
  } cases[] = {
      {"05-Jan-2010", {2010, 1, 5}},
      {"5-jan-10", {2010, 1, 5}},
      {"5 JANUARY 2010", {2010, 1, 5}},
      {"Jan 5 2010", {2010, 1, 5}},
      {"January 5, 2010", {2010, 1, 5}},
      {"5,Jan,2010", {2010, 1, 5}},
      {"05/01/10", {2010, 1, 5}},
      {"05/01/2010", {2010, 1, 5}},
      {"5 1 2010", {2010, 1, 5}},
      {" 5 - 1 / 2010 ", {2010, 1, 5}},
      {"2010-1-5", {2010, 1, 5}},
      {"2010/Jan/05", {2010, 1, 5}},
      {"01-13-2010", {2010, 1, 13}},
      {"2010-13-01", {2010, 1, 13}},
      {"1/2/29", {2029, 2, 1}},
      {"1/2/30", {1930, 2, 1}},
      {"1/2/00", {2000, 2, 1}},
      {"1/2/9", {2009, 2, 1}},
      {"29-02-2012", {2012, 2, 29}},
      {"29-Feb-2000", {2000, 2, 29}},
      {"5-Jan", {2011, 1, 5}},
      {"Jan 5", {2011, 1, 5}},
      {"5/1", {2011, 1, 5}},
      {"1/13", {2011, 1, 13}},
      {"05-Jan-2010\r", {2010, 1, 5}},
      {"31-Dec-9999", {9999, 12, 31}},
  };
  for (const auto& c : cases) {
    const auto date = ReadDate(c.text, 2011);
    ASSERT_TRUE(date) << c.text;
    EXPECT_EQ(*date, c.date) << c.text << " read as " << FormatYyyyMmDd(*date);
  }
}

TEST(ConversionTest, AnythingElseIsNoDate) {
  for (const char* text : {"",
                           " ",
                           "5",
                           "Jan",
                           "Jan 2010",
                           "2010",
                           "1/2010",
                           "2010/1",
                           "30-02-2010",
                           "29-02-2011",
                           "31-Apr-2010",
                           "13-13-2010",
                           "0-1-2010",
                           "1-0-2010",
                           "5--1-2010",
                           "5-1-2010-",
                           "-5-1-2010",
                           "5-1-20100",
                           "5-1-2010 10:30",
                           "5.1.2010",
                           "5-Janu-2010",
                           "5-Jan-Feb",
                           "Jan-Feb-2010",
                           "5-2010-Jan",
                           "05012010",
                           "5Jan2010",
                           "29-Feb",
                           "005-1-2010",
                           "5-1-0010",
                           "abc",
                           "1-2-3-4",
                           "BO NAME NOT FOUND"}) {
    EXPECT_FALSE(ReadDate(text, 2011)) << text;
  }
}

TEST(ConversionTest, MissingYearIsTheClocksAndNoDateIsATypeMismatch) {
  testing::RecordingPlatform platform;
  platform.now.year = 2012;
  EXPECT_EQ(ToDate("29-Feb"), (Date{2012, 2, 29}));
  EXPECT_TRUE(IsDate("29 Feb"));
  platform.now.year = 2013;
  EXPECT_FALSE(IsDate("29 Feb"));
  EXPECT_EQ(KindRaisedBy([] { ToDate("29-Feb"); }), ErrorKind::TypeMismatch);
}

TEST(ConversionTest, DatesAndTimesAreWrittenInEnglish) {
  testing::RecordingPlatform platform;
  const Date date{2010, 1, 5};
  EXPECT_EQ(FormatDdMmmYyyy(date), "05-Jan-2010");
  EXPECT_EQ(FormatDdMmmYyyy({2010, 12, 31}), "31-Dec-2010");
  EXPECT_EQ(FormatDdMmmYy({2005, 9, 15}), "15-Sep-05");
  EXPECT_EQ(FormatDdMmYy(date), "050110");
  EXPECT_EQ(FormatYyyyMmDd(date), "2010-01-05");
  EXPECT_EQ(FormatHhMmSs({2010, 1, 5, 0, 7, 9, 0}), "00-07-09");
  const struct {
    int hour;
    const char* text;
  } hours[] = {{0, "12-07-09AM"}, {1, "01-07-09AM"}, {12, "12-07-09PM"}, {23, "11-07-09PM"}};
  for (const auto& c : hours) {
    EXPECT_EQ(FormatHhMmSsAmPm({2010, 1, 5, c.hour, 7, 9, 0}), c.text);
  }
}

}  // namespace
}  // namespace tallyrun
