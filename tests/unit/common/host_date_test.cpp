#include "common/host_date.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "common/text.h"
#include "common/text_forms.h"
#include "support/describe.h"
#include "support/fake_text_forms.h"
#include "support/raises.h"

namespace wendrill::testing {
namespace {

constexpr double kMidnight = 39611;                 // 12 June 2008
constexpr double kHalfPastThree = 15.5 / 24;        // 3:30 PM
constexpr std::int32_t kFirstDay = -657434;         // 1 January 100
constexpr std::int32_t kLastDay = 2958465;          // 31 December 9999
constexpr double kSecond = 1.0 / (24.0 * 60 * 60);  // as a fraction of a day

std::u16string UsHostDate(const Value& value) {
  return HostDateTextOf(value, UsTextForms());
}

struct KnownDay {
  CalendarDay day;
  double number;
};

constexpr auto kKnownDays = std::to_array<KnownDay>({
    {{1899, 12, 30}, 0},
    {{1899, 12, 31}, 1},
    {{1899, 12, 29}, -1},
    {{1900, 1, 1}, 2},
    {{1900, 2, 28}, 60},
    {{1900, 3, 1}, 61},  // 1900 was no leap year
    {{2000, 1, 1}, 36526},
    {{2000, 2, 29}, 36585},
    {{2000, 3, 1}, 36586},
    {{2008, 6, 12}, kMidnight},
    {{2099, 12, 31}, 73050},
    {{100, 1, 1}, kFirstDay},
    {{9999, 12, 31}, kLastDay},
});

TEST(DateOf, CountsDaysFrom30December1899) {
  for (const KnownDay& known : kKnownDays) {
    EXPECT_EQ(DateOf(known.day).days, known.number) << known.day.year << "-" << known.day.month << "-" << known.day.day;
  }
}

bool IsLeapYear(std::int32_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// The day after, as a wall calendar has it.
CalendarDay DayAfter(CalendarDay day) {
  constexpr std::array kLengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool isLeapFebruary = day.month == 2 && IsLeapYear(day.year);
  if (day.day < kLengths.at(static_cast<std::size_t>(day.month - 1)) + (isLeapFebruary ? 1 : 0)) {
    return {day.year, day.month, day.day + 1};
  }
  return day.month < 12 ? CalendarDay{day.year, day.month + 1, 1} : CalendarDay{day.year + 1, 1, 1};
}

TEST(DayOf, ReversesDateOfOnEveryDayThatAutomationKnows) {
  CalendarDay day = {100, 1, 1};
  for (std::int32_t number = kFirstDay; number <= kLastDay; ++number, day = DayAfter(day)) {
    ASSERT_EQ(DateOf(day).days, number) << day.year << "-" << day.month << "-" << day.day;
    const CalendarDay back = DayOf({static_cast<double>(number)});
    ASSERT_TRUE(back.year == day.year && back.month == day.month && back.day == day.day) << number;
  }
}

TEST(DayOf, LeavesTheTimeOfDayAside) {
  EXPECT_EQ(DayOf({kMidnight + 0.99}).day, 12);
  // Before the epoch the fraction still counts forwards from the day's midnight.
  EXPECT_EQ(DayOf({-1.25}).day, 29);
}

TEST(DayOf, RejectsDaysThatAutomationDoesNotKnow) {
  EXPECT_TRUE(RaisesNumber(5, [] { DayOf({kFirstDay - 1}); }));
  EXPECT_TRUE(RaisesNumber(5, [] { DayOf({kLastDay + 1}); }));
  EXPECT_TRUE(RaisesNumber(5, [] { DayOf({1e300}); }));
}

struct DatedText {
  double days;
  const char16_t* text;
};

constexpr auto kDateTexts = std::to_array<DatedText>({
    {kMidnight, u"6/12/2008"},
    {kMidnight + kHalfPastThree, u"6/12/2008 3:30:00 PM"},
    {kMidnight + 0.5, u"6/12/2008 12:00:00 PM"},
    {kMidnight + kSecond, u"6/12/2008 12:00:01 AM"},
    {kMidnight + 0.25, u"6/12/2008 6:00:00 AM"},
    {kMidnight + 1 - kSecond, u"6/12/2008 11:59:59 PM"},
    {36526, u"1/1/2000"},
    {1, u"12/31/1899"},
    {-1, u"12/29/1899"},
    {-1.25, u"12/29/1899 6:00:00 AM"},
    {kFirstDay, u"1/1/100"},
    {kLastDay, u"12/31/9999"},
    {0, u"12:00:00 AM"},
    {0.5, u"12:00:00 PM"},
    {kHalfPastThree, u"3:30:00 PM"},
});

TEST(DateText, IsTheRunTimesStandardText) {
  for (const DatedText& row : kDateTexts) {
    EXPECT_EQ(DateText({row.days}), row.text) << row.days;
  }
}

TEST(DateText, RoundsToTheNearestSecond) {
  EXPECT_EQ(DateText({kMidnight + 0.4 * kSecond}), u"6/12/2008");
  EXPECT_EQ(DateText({kMidnight + 0.6 * kSecond}), u"6/12/2008 12:00:01 AM");
  EXPECT_EQ(DateText({kMidnight - 0.4 * kSecond}), u"6/12/2008");
}

TEST(DateText, RejectsDaysThatAutomationDoesNotKnow) {
  EXPECT_TRUE(Raises(5, u"Invalid procedure call or argument", [] { DateText({kLastDay + 1}); }));
}

TEST(ParseDateText, ReversesDateText) {
  for (const DatedText& row : kDateTexts) {
    const auto date = ParseDateText(row.text);
    ASSERT_TRUE(date.has_value()) << ToUtf8(row.text);
    EXPECT_NEAR(date->days, row.days, kSecond / 1000) << ToUtf8(row.text);
  }
}

TEST(ParseDateText, AcceptsMidnightWrittenOut) {
  EXPECT_EQ(ParseDateText(u"6/12/2008 12:00:00 AM"), Date{kMidnight});
}

TEST(ParseDateText, FindsNothingInAnyOtherForm) {
  for (const char16_t* text : {u"",
                               u" ",
                               u"12JUN08",
                               u"12JUN",
                               u"06/12/2008",
                               u"6/12/08",
                               u"6/12",
                               u"6/12/2008 ",
                               u" 6/12/2008",
                               u"6/12/2008/1",
                               u"6-12-2008",
                               u"2008/6/12",
                               u"13/1/2008",
                               u"0/1/2008",
                               u"6/31/2008",
                               u"6/0/2008",
                               u"2/29/2007",
                               u"2/29/1900",
                               u"6/12/20080",
                               u"6/12/99",
                               u"6/12/2008 3:30",
                               u"6/12/2008 3:30 PM",
                               u"6/12/2008 15:30:00",
                               u"6/12/2008 13:30:00 PM",
                               u"6/12/2008 0:30:00 AM",
                               u"6/12/2008 3:60:00 PM",
                               u"6/12/2008 3:30:60 PM",
                               u"6/12/2008 3:30:00 pm",
                               u"6/12/2008  3:30:00 PM",
                               u"6/12/2008 3:30:00 PMX",
                               u"6/12/2008 03:30:00 PM",
                               u"3:30",
                               u"15:30:00",
                               u"3:30:00PM",
                               u"9999:9999:9999 PM",
                               u"x/y/z",
                               u"//",
                               u"::",
                               u"39611"}) {
    EXPECT_EQ(ParseDateText(text), std::nullopt) << ToUtf8(text);
  }
}

TEST(HostDateTextOf, WritesADateAsTheHostDoes) {
  EXPECT_EQ(UsHostDate(Date{kMidnight}), u"12JUN08");
  EXPECT_EQ(UsHostDate(Date{kMidnight + kHalfPastThree}), u"12JUN08");
  EXPECT_EQ(UsHostDate(DateOf({2010, 1, 5})), u"05JAN10");
  EXPECT_EQ(UsHostDate(DateOf({2000, 2, 29})), u"29FEB00");
  EXPECT_EQ(UsHostDate(DateOf({1999, 12, 31})), u"31DEC99");
}

TEST(HostDateTextOf, NamesEveryMonth) {
  constexpr std::array<std::u16string_view, 12> kHostDates = {u"01JAN08", u"01FEB08", u"01MAR08", u"01APR08",
                                                              u"01MAY08", u"01JUN08", u"01JUL08", u"01AUG08",
                                                              u"01SEP08", u"01OCT08", u"01NOV08", u"01DEC08"};
  std::int32_t month = 0;
  for (const std::u16string_view hostDate : kHostDates) {
    EXPECT_EQ(UsHostDate(DateOf({2008, ++month, 1})), hostDate);
  }
}

TEST(HostDateTextOf, ReadsATextInTheRunTimesStandardForm) {
  EXPECT_EQ(UsHostDate(u"6/12/2008"), u"12JUN08");
  EXPECT_EQ(UsHostDate(u"6/12/2008 3:30:00 PM"), u"12JUN08");
  EXPECT_EQ(UsHostDate(u"2/29/2008"), u"29FEB08");
}

// 12 June and 6 December: which is which, the desktop says.
TEST(HostDateTextOf, ReadsATextInTheStandardFormOfTheDesktop) {
  FakeTextForms dayMonthYear;
  dayMonthYear.DayMonthYear();
  EXPECT_EQ(HostDateTextOf(u"12/06/2008", dayMonthYear), u"12JUN08");
  EXPECT_EQ(HostDateTextOf(u"6/12/2008", dayMonthYear), u"6/12/2008");
  EXPECT_EQ(HostDateTextOf(12.5, dayMonthYear), u"12,5");
}

TEST(HostDateTextOf, LeavesAnyOtherTextAsItIs) {
  for (const char16_t* text : {u"", u"12JUN", u"12JUN08", u" 6/12/2008", u"06/12/2008", u"2/29/2007", u"OPEN"}) {
    EXPECT_EQ(UsHostDate(text), text);
  }
}

TEST(HostDateTextOf, WritesAnyOtherValueAsText) {
  EXPECT_EQ(UsHostDate(Value()), u"");
  EXPECT_EQ(UsHostDate(std::int16_t{12}), u"12");
  EXPECT_TRUE(RaisesNumber(94, [] { UsHostDate(Null()); }));
  EXPECT_TRUE(RaisesNumber(13, [] { UsHostDate(TextArray()); }));
}

}  // namespace
}  // namespace wendrill::testing
