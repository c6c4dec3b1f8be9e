#include <gtest/gtest.h>

#include "core/RuntimeError.h"
#include "core/files/modFileIO.h"
#include "core/text/Conversion.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/RecordingPlatform.h"

namespace tallyrun::testing {
namespace {

TEST(ConversionTest, TrimTakesBlanksOnlyAndLowerCaseFoldsTheWholeCodePage) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim(" \ta\r "), "\ta\r");
  EXPECT_EQ(ToLower("AZ az [`{@"), "az az [`{@");
  EXPECT_EQ(ToLower("\xC0\xDE\xD7\xDF\xF7\x8A\x8C\x8E\x9F\x80"),
            "\xE0\xFE\xD7\xDF\xF7\x9A\x9C\x9E\xFF\x80");
}

TEST(ConversionTest, NumbersAreReadInEveryAcceptedFormAndNoOther) {
  const std::pair<double, const char*> cases[] = {
      {7, "7|  7\t|7\r|7 \r\r|+7|7+|$7|$ 7"},
      {-7, "-7|7-|- 7|7 -|(7)|( 7 )|-$7|$-7|($7.00)"},
      {1500, "1500|1,500|1,5,,00|1,5e2|1.5E+3|15000e-1"},
      {0.5, ".5|0.5|5e-1|+.5"},
      {31, "31.|&H1F|&h1f|&O37"},
      {0, "0|1e-400|0e9999999999|1e-99999999999999999999"},
      {12345678901234567890.0, "12345678901234567890"}};
  for (const auto& [value, texts] : cases) {
    for (const std::string_view text : Split(texts, "|")) {
      EXPECT_TRUE(IsNumeric(text)) << text;
      EXPECT_DOUBLE_EQ(ToDouble(text), value) << text;
    }
  }
  EXPECT_EQ(ToDouble("1" + std::string(400, '0') + "e-400"), 1);
  for (const std::string_view text : Split(
           "| |\r|.|-|$|()|15a|a15|1 5|1-5|-5-|--5|+5-|(5|5)|(-5)|((5))|$$5|,5|.,5|1.2.3|1.5,0|5e|"
           "e5|5e+|5e1.5|&H|&HG|-&H5|&O8|&17|&|nan|inf|0x10|1d3|\2405|5\n5",
           "|")) {
    EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_EQ(ErrorOf([&] { ToDouble(text); }), "Type mismatch") << text;
  }
  for (const char* text : {"1e400", "-1e309", "1e99999999999999999999", "&H10000000000000000"}) {
    EXPECT_EQ(ErrorOf([&] { ToDouble(text); }), "Overflow") << text;
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
  EXPECT_EQ(ErrorOf([] { ToInt32("2147483647.5"); }), "Overflow");
  EXPECT_EQ(ToInt32("-2.5"), -2);
}

TEST(ConversionTest, DatesAreReadDayFirst) {
  // Read in the year 2011.
  const std::pair<const char*, const char*> cases[] = {
      {"2010-01-05",
       "05-Jan-2010|5-jan-10|5 JANUARY 2010|Jan 5 2010|January 5, 2010|5,Jan,2010|05/01/10|"
       "05/01/2010|5 1 2010| 5 - 1 / 2010 |2010-1-5|2010/Jan/05|05-Jan-2010\r"},
      {"2010-01-13", "01-13-2010|2010-13-01"},
      {"2011-01-05", "5-Jan|Jan 5|5/1"},
      {"2011-01-13", "1/13"},
      {"2029-02-01", "1/2/29"},
      {"1930-02-01", "1/2/30"},
      {"2009-02-01", "1/2/9"},
      {"2012-02-29", "29-02-2012"},
      {"2000-02-29", "29-Feb-00"},
      {"9999-12-31", "31-Dec-9999"}};
  for (const auto& [date, texts] : cases) {
    for (const std::string_view text : Split(texts, "|")) {
      const auto read = ReadDate(text, 2011);
      EXPECT_EQ(read ? FormatYyyyMmDd(*read) : "none", date) << text;
    }
  }
  for (const std::string_view text :
       Split("| |5|Jan|Jan 2010|2010|1/2010|2010/1|30-02-2010|29-02-2011|31-Apr-2010|13-13-2010|"
             "0-1-2010|1-0-2010|5--1-2010|5-1-2010-|-5-1-2010|5-1-20100|5-1-2010 10:30|5.1.2010|"
             "5-Janu-2010|5-Jan-Feb|Jan-Feb-2010|5-2010-Jan|05012010|5Jan2010|29-Feb|005-1-2010|"
             "5-1-0010|abc|1-2-3-4|BO NAME NOT FOUND",
             "|")) {
    EXPECT_FALSE(ReadDate(text, 2011)) << text;
  }
  RecordingPlatform platform;
  platform.now.year = 2012;
  EXPECT_EQ(ToDate("29-Feb"), (Date{2012, 2, 29}));
  platform.now.year = 2013;
  EXPECT_EQ(ErrorOf([] { ToDate("29-Feb"); }), "Type mismatch");
}

TEST(ConversionTest, DatesAndTimesAreWrittenInEnglish) {
  RecordingPlatform platform;
  EXPECT_EQ(FormatDdMmmYyyy({2010, 12, 1}), "01-Dec-2010");
  EXPECT_EQ(FormatDdMmmYy({2005, 9, 15}), "15-Sep-05");
  EXPECT_EQ(FormatHhMmSsAmPm({2010, 1, 5, 0, 7, 9, 0}), "12-07-09AM");
  EXPECT_EQ(FormatHhMmSsAmPm({2010, 1, 5, 12, 7, 9, 0}), "12-07-09PM");
  // What a file name or a script's line can't carry gives way.
  for (const char* given : {"", "p.m.", "NACHM", "\xD6tm.2"}) {
    platform.amPm.second = given;
    EXPECT_EQ(FormatHhMmSsAmPm({2010, 1, 5, 23, 7, 9, 0}), std::string("11-07-09") + given);
  }
  for (const char* given : {"??", "p. m.", "p.\xA0m.", "p/m", "PM\xF7"}) {
    platform.amPm = {given, given};
    EXPECT_EQ(FormatHhMmSsAmPm({2010, 1, 5, 23, 7, 9, 0}), "11-07-09PM") << given;
    EXPECT_EQ(FormatHhMmSsAmPm({2010, 1, 5, 3, 7, 9, 0}), "03-07-09AM") << given;
  }
}

}  // namespace
}  // namespace tallyrun::testing
