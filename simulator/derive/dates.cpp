#include "derive/dates.h"

#include <array>
#include <cmath>

#include "derive/own_layout.h"

namespace wendrill::simulator {
namespace {

constexpr std::array<TextView, 12> kMonths = {u"JAN", u"FEB", u"MAR", u"APR", u"MAY", u"JUN",
                                              u"JUL", u"AUG", u"SEP", u"OCT", u"NOV", u"DEC"};
constexpr std::size_t kMonthWidth = 3;
constexpr std::size_t kYearWidth = 2;

constexpr std::int32_t kDaysPerWeek = 7;
constexpr double kDaysPerYear = 365;

// The number in the first one or two digits of the text. `width` receives the number of digits: 0 when the text does
// not begin with a digit.
std::int32_t NumberAtStartOf(TextView text, std::size_t& width) {
  std::int32_t number = 0;
  for (width = 0; width < 2 && width < text.size() && IsDigit(text[width]); ++width) {
    number = number * 10 + (text[width] - u'0');
  }
  return number;
}

// The month with which the text begins, from 1 for January; 0 when the text does not begin with a month.
std::int32_t MonthAtStartOf(TextView text) {
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (text.starts_with(kMonths.at(i))) {
      return static_cast<std::int32_t>(i) + 1;
    }
  }
  return 0;
}

std::int32_t WholeYear(std::int32_t ofTwoDigits) {
  const std::int32_t century = kFirstYearOfTwoDigits / 100 * 100;
  return century + ofTwoDigits + (ofTwoDigits < kFirstYearOfTwoDigits % 100 ? 100 : 0);
}

bool IsLeapYear(std::int32_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// Whether the day exists in a calendar of the years 100 to 9999, which are the years of automation's dates.
bool IsInCalendar(const CalendarDay& day) {
  constexpr std::array<std::int32_t, 12> kLengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const std::int32_t leap = day.month == 2 && IsLeapYear(day.year) ? 1 : 0;
  return day.year >= 100 && day.year <= 9999 && day.day >= 1 &&
         day.day <= kLengths.at(static_cast<std::size_t>(day.month) - 1) + leap;
}

// The weekday of a date, from 1 for Monday to 7 for Sunday. Day 0 of automation dates, 30 December 1899, was a
// Saturday.
std::int32_t WeekdayOf(const Date& date) {
  const auto day = static_cast<std::int32_t>(date.days);
  return ((day + 5) % kDaysPerWeek + kDaysPerWeek) % kDaysPerWeek + 1;
}

}  // namespace

std::optional<WrittenDay> DayAtStartOf(TextView text) {
  WrittenDay found;
  found.day = NumberAtStartOf(text, found.width);
  if (found.width == 0) {
    return std::nullopt;
  }
  found.month = MonthAtStartOf(text.substr(found.width));
  if (found.month == 0) {
    return std::nullopt;
  }
  found.width += kMonthWidth;
  std::size_t yearWidth = 0;
  const std::int32_t year = NumberAtStartOf(text.substr(found.width), yearWidth);
  if (yearWidth == kYearWidth) {
    found.year = WholeYear(year);
    found.width += kYearWidth;
  }
  return found;
}

std::optional<WrittenDay> WholeDay(TextView text) {
  const auto day = DayAtStartOf(text);
  return day && day->width == text.size() ? day : std::nullopt;
}

std::optional<Date> Years::DateNear(const WrittenDay& day, std::int32_t weekday) const {
  if (day.year) {
    const CalendarDay whole = {*day.year, day.month, day.day};
    return IsInCalendar(whole) ? std::optional(DateOf(whole)) : std::nullopt;
  }
  if (!date_) {
    return std::nullopt;
  }
  std::optional<Date> nearest;
  double distance = kMostYears * (kDaysPerYear + 1);
  const std::int32_t thisYear = DayOf(*date_).year;
  // The loop ends when no day of the years still to try can be nearer than the nearest day found so far.
  for (std::int32_t away = 0; away <= kMostYears && (away - 1) * kDaysPerYear <= distance; ++away) {
    for (const std::int32_t year : {thisYear - away, thisYear + away}) {
      const CalendarDay candidate = {year, day.month, day.day};
      if (!IsInCalendar(candidate)) {
        continue;
      }
      const Date date = DateOf(candidate);
      const double after = date.days - date_->days;
      const bool fits = weekday == 0 ? after >= -kDaysBefore && after <= kDaysAfter : WeekdayOf(date) == weekday;
      if (fits && std::fabs(after) < distance) {
        nearest = date;
        distance = std::fabs(after);
      }
    }
  }
  return nearest;
}

}  // namespace wendrill::simulator
