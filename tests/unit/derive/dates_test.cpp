#include "derive/dates.h"

#include <gtest/gtest.h>

namespace wendrill::simulator {
namespace {

constexpr CalendarDay kDisplayed = {2008, 6, 12};

// The day that a text is resolved to, as 2008-06-15; empty for none.
std::string Resolved(TextView text, std::int32_t weekday = 0, std::optional<CalendarDay> date = kDisplayed) {
  const auto written = WholeDay(text);
  const auto found = written ? Years(date).DateNear(*written, weekday) : std::nullopt;
  if (!found) {
    return "";
  }
  const CalendarDay day = DayOf(*found);
  return std::to_string(day.year) + "-" + std::to_string(day.month) + "-" + std::to_string(day.day);
}

TEST(Dates, WithoutAWeekdayLieFrom60DaysBeforeTo305DaysAfterTheDisplay) {
  EXPECT_EQ(Resolved(u"12JUN"), "2008-6-12");
  EXPECT_EQ(Resolved(u"15JUN"), "2008-6-15");
  EXPECT_EQ(Resolved(u"13APR"), "2008-4-13");  // 60 days before 12 June
  EXPECT_EQ(Resolved(u"12APR"), "2009-4-12");  // 61 days before, or 304 after
  EXPECT_EQ(Resolved(u"31DEC"), "2008-12-31");
  EXPECT_EQ(Resolved(u"1JAN"), "2009-1-1");
}

// 13 April 2009 is 305 days after 12 June 2008, and 13 April 2008 is 60 days before it.
TEST(Dates, ThatLieInTheWindowTwiceAreTheNearerOnes) {
  EXPECT_EQ(Resolved(u"13APR"), "2008-4-13");
}

TEST(Dates, WithAWeekdayLieInTheNearestYearInWhichItFits) {
  EXPECT_EQ(Resolved(u"15JUN", 7), "2008-6-15");  // a Sunday
  EXPECT_EQ(Resolved(u"15JUN", 1), "2009-6-15");  // a Monday
  EXPECT_EQ(Resolved(u"15JUN", 5), "2007-6-15");  // a Friday
  EXPECT_EQ(Resolved(u"15JUN", 3), "2005-6-15");  // a Wednesday, 1,093 days before; 2011 is 1,098 days after
  EXPECT_EQ(Resolved(u"10JAN", 4), "2008-1-10");  // long past, but the weekday fits
}

TEST(Dates, OfALeapDayLieInTheNearestLeapYearInWhichTheWeekdayFits) {
  EXPECT_EQ(Resolved(u"29FEB", 5), "2008-2-29");                            // a Friday
  EXPECT_EQ(Resolved(u"29FEB", 3), "2012-2-29");                            // a Wednesday
  EXPECT_EQ(Resolved(u"29FEB", 7), "2004-2-29");                            // a Sunday
  EXPECT_EQ(Resolved(u"29FEB", 1, CalendarDay{1900, 6, 12}), "1904-2-29");  // a Monday; 1900 has no leap day
}

TEST(Dates, WithoutAYearThatFitsAreNone) {
  EXPECT_EQ(Resolved(u"29FEB"), "");  // neither 2007's nor 2009's window has one: 29 February 2008 is 104 days before
  EXPECT_EQ(Resolved(u"15JUN", 8), "");
  EXPECT_EQ(Resolved(u"31JUN"), "");
  EXPECT_EQ(Resolved(u"0JUN"), "");
  EXPECT_EQ(Resolved(u"15JUN", 0, std::nullopt), "");
}

TEST(Dates, WithAYearNeedNoOther) {
  EXPECT_EQ(Resolved(u"15JUN08", 0, std::nullopt), "2008-6-15");
  EXPECT_EQ(Resolved(u"15JUN79"), "2079-6-15");
  EXPECT_EQ(Resolved(u"15JUN80"), "1980-6-15");
  EXPECT_EQ(Resolved(u"29FEB07"), "");
}

TEST(Dates, AreWrittenWithOneOrTwoDigitsAndAMonth) {
  EXPECT_EQ(Resolved(u"5JUN"), "2008-6-5");
  EXPECT_EQ(Resolved(u"05JUN"), "2008-6-5");
  for (const TextView text : {u"", u"JUN", u"15", u"15jun", u"15JUX", u"15JUN8", u"115JUN", u"15JUN08Z", u"15 JUN"}) {
    EXPECT_FALSE(WholeDay(text)) << text.size();
  }
}

TEST(Dates, EndWhereAutomationsDatesEnd) {
  EXPECT_EQ(Resolved(u"1JAN", 0, CalendarDay{9999, 12, 31}), "");
  EXPECT_EQ(Resolved(u"31DEC", 0, CalendarDay{9999, 12, 31}), "9999-12-31");
}

}  // namespace
}  // namespace wendrill::simulator
